$!UI MENU "Animate" "&Key Frame Animation..."
$!VIEW 2.59808 -4.5 3.1 60 30 0 3.2
$!UI PRESS "Key Frame Animation" "Append"
$!VIEW 5.19615 0 3.1 60 90 0 3.2
$!UI PRESS "Key Frame Animation" "Append"
$!VIEW 0 5.19615 3.1 60 180 0 3.2
$!UI PRESS "Key Frame Animation" "Append"
$!UI SELECT "Key Frame Animation" list:1 2
$!UI TYPE "Key Frame Animation" "View Name:" "Side"
$!UI TYPE "Key Frame Animation" "Frame Count:" "45"
$!UI DIALOGMENU "Key Frame Animation" "Options" "Fade In" ON
$!UI DIALOGMENU "Key Frame Animation" "Options" "Fade Out" ON
$!UI DUMP "Key Frame Animation"
$!UI PRESS "Key Frame Animation" "Animate All"
$!UI CLOSE "Key Frame Animation"
