# The end-to-end run that scripts/memcheck.sh watches with valgrind: a key frame list built
# through the dialog, saved to a settings file, opened again by macro command, then animated to a
# movie file with fade in and moving streamtrace markers. Small and short, so it runs in seconds
# under valgrind.
$!UI MENU "Animate" "&Key Frame Animation..."
$!VIEW 2.59808 -4.5 3.1 60 30 0 3.2
$!UI PRESS "Key Frame Animation" "Append"
$!VIEW 5.19615 0 3.1 60 90 0 3.2
$!UI PRESS "Key Frame Animation" "Append"
$!UI SELECT "Key Frame Animation" list:1 1
$!UI TYPE "Key Frame Animation" "Frame Count:" "3"
$!UI DIALOGMENU "Key Frame Animation" "Options" "Fade In" ON
$!UI DIALOGMENU "Key Frame Animation" "Options" "Animate Streamtraces Concurrently" ON
$!UI DIALOGMENU "Key Frame Animation" "File" "Save Animation File As..."
$!ADDON "Key Frame Animation" OpenSettingsFile FileName=memcheck.keyframe
$!EXPORTSETUP ExportFormat = MPEG4
$!EXPORTSETUP ImageWidth = 64
$!EXPORTSETUP ExportFName = "memcheck.mp4"
$!ADDON "Key Frame Animation" Animate AnimationDestination=ToFile
$!UI CLOSE "Key Frame Animation"
