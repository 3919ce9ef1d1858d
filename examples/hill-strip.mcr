# Four stills of the hill flight (examples/hill.keyframe), at its first four key frames with their
# hours of the afternoon and the markers a little further along the wind each time, with the
# labelled axis and the colour legend. The README's strip is made from them by scripts/hill.sh:
#   build/bin/vexplot --size 640x360 --data out/hill/hill.pvd --hide-block air \
#       --color-by temperature --colormap viridis --streamtraces velocity \
#       --seed-line 0.2,0.5,0.5,0.2,5.5,0.5,9 examples/hill-strip.mcr
#   build/bin/pngstrip docs/images/hill-strip.png out/hill-strip-1.png out/hill-strip-2.png \
#       out/hill-strip-3.png out/hill-strip-4.png
$!VIEW 15.3923 -15 12.6584 60 30 0 12.8
$!SOLUTIONTIME 12
$!SET StreamAttributes StreamTiming TimeAnchor = 0
$!SNAPSHOT "out/hill-strip-1.png" SUPERSAMPLE=2
$!VIEW -2.61077 -17.9104 9.64894 68 -20 0 11.5
$!SOLUTIONTIME 13
$!SET StreamAttributes StreamTiming TimeAnchor = 3
$!SNAPSHOT "out/hill-strip-2.png" SUPERSAMPLE=2
$!VIEW -17.7198 -1.00611 7.27368 74 -80 0 11
$!SOLUTIONTIME 14
$!SET StreamAttributes StreamTiming TimeAnchor = 6
$!SNAPSHOT "out/hill-strip-3.png" SUPERSAMPLE=2
$!VIEW -5.59537 21.3517 11.9257 62 -150 0 12
$!SOLUTIONTIME 15
$!SET StreamAttributes StreamTiming TimeAnchor = 9
$!SNAPSHOT "out/hill-strip-4.png" SUPERSAMPLE=2
