# The demo: a flight once round the demo data set through five key frames (examples/demo.keyframe,
# 161 frames), with the surface changing over its six time steps, markers travelling along the
# streamtraces, and the picture fading in from black and out to black; written as an H.264 MP4 of
# 1280 x 720 pixels at 30 frames per second, drawn at twice the size for smooth edges.
# scripts/demo.sh builds what it needs and runs it from the top of the source tree:
#   vexplot --size 1280x720 examples/demo.mcr
# File names in a macro are taken from the working directory; out/ must exist.
$!EXPORTSETUP ExportFormat = MPEG4
$!EXPORTSETUP ExportRegion = CURRENTFRAME
$!EXPORTSETUP ImageWidth = 1280
$!EXPORTSETUP AnimationSpeed = 30
$!EXPORTSETUP UseSuperSampleAntiAliasing = true
$!EXPORTSETUP SuperSampleFactor = 2
$!EXPORTSETUP ExportFName = "out/demo.mp4"
$!ADDON "Key Frame Animation" OpenSettingsFile FileName=examples/demo.keyframe
$!ADDON "Key Frame Animation" Animate AnimationDestination=ToFile
