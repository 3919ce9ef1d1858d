# Four stills of the demo flight, one at each of its first four key frames (examples/demo.keyframe),
# with the surface and the streamtrace markers as the flight shows them there; the axis box is
# hidden, as it is during a run. The README's strip of frames is made from them:
#   mkdir -p out
#   build/bin/vexplot --size 480x270 examples/strip.mcr
#   build/bin/pngstrip docs/images/demo-strip.png out/strip-1.png out/strip-2.png \
#       out/strip-3.png out/strip-4.png
$!SET ThreeDAxis FrameAxis Show = false
$!VIEW 2.59808 -4.5 3.15 60 30 0 3.4
$!SOLUTIONTIME 0
$!SET StreamAttributes StreamTiming TimeAnchor = 0
$!SNAPSHOT "out/strip-1.png" SUPERSAMPLE=3
$!VIEW 5.29813 1.92836 2.20212 70 110 0 3.2
$!SOLUTIONTIME 0.25
$!SET StreamAttributes StreamTiming TimeAnchor = 0.05
$!SNAPSHOT "out/strip-2.png" SUPERSAMPLE=3
$!VIEW -0.440321 2.49719 5.58785 25 -170 0 3.8
$!SOLUTIONTIME 0.5
$!SET StreamAttributes StreamTiming TimeAnchor = 0.1
$!SNAPSHOT "out/strip-3.png" SUPERSAMPLE=3
$!VIEW -5.29769 0 2.96683 62 -90 0 3.1
$!SOLUTIONTIME 0.75
$!SET StreamAttributes StreamTiming TimeAnchor = 0.15
$!SNAPSHOT "out/strip-4.png" SUPERSAMPLE=3
