$!UI MENU "Animate" "&Key Frame Animation..."
$!UI PRESS "Key Frame Animation" "Append"
$!VIEW 5 0 3 60 90 0 3
$!UI PRESS "Key Frame Animation" "Append"
$!UI SELECT "Key Frame Animation" list:1 1 2
$!UI PRESS "Key Frame Animation" "Animate Selected"
$!UI DIALOGMENU "Key Frame Animation" "Options" "Time Animation Options..."
$!UI RADIO "Time Animation Options" "Bounce"
$!UI SPIN "Time Animation Options" spintextfield:1 UP
$!UI OK "Time Animation Options"
$!UI OPTION "Key Frame Animation" "Destination:" "To File"
$!UI PRESS "Key Frame Animation" "Animate All"
$!UI OPTION "Export Options" "Format:" "AVI"
$!UI RADIO "Export Options" "Enter Width:"
$!UI TYPE "Export Options" textfield:1 "120"
$!UI TOGGLE "Export Options" "Antialiasing" ON
$!UI DUMP "Export Options"
$!UI CANCEL "Export Options"
$!UI DIALOGMENU "Key Frame Animation" "File" "Save Animation File As..."
$!UI PRESS "Key Frame Animation" "Delete"
$!UI PRESS "Key Frame Animation" "Clear"
$!UI HELP "Key Frame Animation"
$!UI CLOSE "Key Frame Animation"
