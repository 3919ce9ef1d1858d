# A flight over the example data set "hill" (an afternoon of wind over hilly land, written by
# makehill with VTK) through the five key frames of hill.keyframe, 161 frames: the ground's
# temperature changes hour by hour with the key frames' solution times, markers travel along the
# streamtraces of the wind, and the picture fades in and out; an H.264 MP4 of 1280 x 720 at 30
# frames per second. scripts/hill.sh writes the data and runs it from the top of the source tree:
#   build/bin/makehill out/hill
#   build/bin/vexplot --size 1280x720 --data out/hill/hill.pvd --hide-block air \
#       --color-by temperature --colormap viridis --streamtraces velocity \
#       --seed-line 0.2,0.5,0.5,0.2,5.5,0.5,9 examples/hill.mcr
$!EXPORTSETUP ExportFormat = MPEG4
$!EXPORTSETUP ExportRegion = CURRENTFRAME
$!EXPORTSETUP ImageWidth = 1280
$!EXPORTSETUP AnimationSpeed = 30
$!EXPORTSETUP ExportFName = "out/hill.mp4"
$!ADDON "Key Frame Animation" OpenSettingsFile FileName=examples/hill.keyframe
$!ADDON "Key Frame Animation" Animate AnimationDestination=ToFile
