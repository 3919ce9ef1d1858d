# Builds a key frame list through the Key Frame Animation dialog, as a user at the screen would,
# and animates it: three views of the demo data set captured with Append, the middle one renamed
# and given more frames, the lighting faded in and out, then Animate All on screen. Run from the
# top of the source tree:
#   build/bin/vexplot --trace out/dialog.jsonl examples/dialog.mcr
# The $!UI lines drive the dialog (docs/ui-scripting.md); $!UI DUMP prints its state.
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
