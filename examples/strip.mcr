# Four stills of the demo flight, one at each of its first four key frames (examples/demo.keyframe,
# frames 0, 40, 80 and 120), with the surface's solution time and the streamtrace markers' time
# anchor (0.04 more each frame) as the flight has them there, at full light; the axis box is
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
$!SET StreamAttributes StreamTiming TimeAnchor = 1.6
$!SNAPSHOT "out/strip-2.png" SUPERSAMPLE=3
$!VIEW -0.440321 2.49719 5.58785 25 -170 0 3.8
$!SOLUTIONTIME 0.5
$!SET StreamAttributes StreamTiming TimeAnchor = 3.2
$!SNAPSHOT "out/strip-3.png" SUPERSAMPLE=3
$!VIEW -5.29769 0 2.96683 62 -90 0 3.1
$!SOLUTIONTIME 0.75
$!SET StreamAttributes StreamTiming TimeAnchor = 4.8
$!SNAPSHOT "out/strip-4.png" SUPERSAMPLE=3
