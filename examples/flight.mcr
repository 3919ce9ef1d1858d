# Flies around the demo data set through the four key frames of flight.keyframe: the surface
# changes with the key frames' solution times, the streamtrace markers move, and the lighting
# fades in at the start and out at the end. Run from the top of the source tree:
#   build/bin/vexplot --trace out/trace.jsonl examples/flight.mcr
# File names in a macro are taken from the working directory.
$!ADDON "Key Frame Animation" OpenSettingsFile FileName=examples/flight.keyframe
$!ADDON "Key Frame Animation" Animate AnimationDestination=OnScreen
