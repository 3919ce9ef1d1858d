# frames, zones and views
$!NEWFRAME 1
$!ZONE 0 1
$!ZONE 0.5 1
$!ZONE 1 1
$!SOLUTIONTIME 0.5
$!VIEW 1 2 3 30 45 0 10
$!REDRAW
$!PLOTTYPE 2
$!ADDON "Key Frame Animation" Animate AnimationDestination=OnScreen
$!PLOTTYPE 1
$!DELETEFRAMES
$!REDRAW
$!SNAPSHOT "still.png" SUPERSAMPLE=2
