$!REDRAW
$!redraw
$!ReDraw
$!REDRAW
$!" or a comment starting with 
$!
$!".
$! REDRAW
$!".
$!FLY away
$!FLY".
$!ADDON
$!ADDON "<add-on name>" <command>.
$!ADDON Probe Fail
$!ADDON "<add-on name>" <command>.
$!ADDON "Probe Fail
$!ADDON "" Fail
$!ADDON "Probe"Fail
$!ADDON "Nobody" Animate
$!EXPORTSETUP ExportFormat AVI
$!EXPORTSETUP <Attribute> = <value>.
$!EXPORTSETUP = AVI
$!EXPORTSETUP <Attribute> = <value>.
$!EXPORTSETUP Export Format = AVI
$!EXPORTSETUP <Attribute> = <value>.
$!EXPORTSETUP Quality = 3
$!EXPORTSETUP ExportFormat =  
$!EXPORTSETUP ExportFormat: the value is missing.
$!EXPORTSETUP ExportFormat = MOV
$!EXPORTSETUP ExportFormat = 21
$!EXPORTSETUP ExportRegion = SCREEN
$!EXPORTSETUP FlashImageType = PNG
$!EXPORTSETUP FlashCompressionType = FAST
$!EXPORTSETUP ImageWidth = 800.5
$!EXPORTSETUP ImageWidth: "800.5" is not a whole number.
$!EXPORTSETUP ImageWidth = 0
$!EXPORTSETUP ImageWidth: the host refused "0": the value is out of 
$!EXPORTSETUP ImageWidth = 99999999999
$!EXPORTSETUP ImageWidth: the host refused "99999999999": the value is 
$!EXPORTSETUP ImageWidth = 99999999999999999999
$!EXPORTSETUP ImageWidth: "99999999999999999999" is not a whole number.
$!EXPORTSETUP AnimationSpeed = fast
$!EXPORTSETUP AnimationSpeed: "fast" is not a number.
$!EXPORTSETUP AnimationSpeed = inf
$!EXPORTSETUP AnimationSpeed: "inf" is not a number.
$!EXPORTSETUP AnimationSpeed = 0
$!EXPORTSETUP AnimationSpeed: the host refused "0": the value is out of 
$!EXPORTSETUP UseSuperSampleAntiAliasing = yes
$!EXPORTSETUP SuperSampleFactor = 17
$!EXPORTSETUP SuperSampleFactor: the host refused "17": the value is out 
$!EXPORTSETUP ExportFName = movie.mp4
$!EXPORTSETUP ExportFName: the file name must stand in double quotes; 
$!EXPORTSETUP ExportFName = "movie.mp4
$!EXPORTSETUP ExportFName: the file name must stand in double quotes; 
$!SET GlobalThreeD LightSource Intensity 50
$!SET = 50
$!SET GlobalThreeD Brightness = 50
$!SET ThreeDView ViewerPosition = 1
$!SET GlobalThreeD LightSource Intensity =
$!SET GlobalThreeD LightSource Intensity: the value is missing.
$!SET GlobalThreeD LightSource Intensity = bright
$!SET GlobalThreeD LightSource Intensity: "bright" is not a number.
$!SET GlobalThreeD LightSource Intensity = 101
$!SET GlobalThreeD LightSource Intensity: the host refused "101": the 
$!SET ExportSetup ImageWidth = 1.5
$!SET ExportSetup ImageWidth: "1.5" is not a whole number.
$!SET ThreeDAxis FrameAxis Show = off
$!SET ExportSetup ExportFName = a.mp4
$!SET ExportSetup ExportFName: the text must stand in double quotes; 
$!VIEW 1 2 3
$!VIEW
$!VIEW 1 2 3 4 5 6 7 8
$!VIEW 1 2 three 4 5 6 7
$!VIEW 1 2 nan 4 5 6 7
$!VIEW 1 2 3x 4 5 6 7
$!VIEW 1 2 3 4 5 6 0
$!SOLUTIONTIME
$!SOLUTIONTIME 1 2
$!SOLUTIONTIME later
$!PLOTTYPE 5
$!PLOTTYPE
$!NEWFRAME Cartesian3D
$!DELETEFRAMES all
$!DELETEFRAMES takes no arguments; found "all".
$!ZONE 0.5
$!ZONE soon 1
$!ZONE 0.5 -1
$!REDRAW now
$!REDRAW takes no arguments; found "now".
$!" or a comment starting with "#"; found 
$!A\x01\x1B".
$!A
$!
$!
$!
$!ADDON "Probe" Open  FileName="a b.keyframe"  x="y" 
$!addon   "Probe" Go
$!ADDON "Probe"	  Go
$!ADDON "Probe"
$!ADDON "Probe" 
$!ADDON "Probe" Go
$!ADDON "Probe" Fail
$!ADDON "Probe" FailSilently
$!ADDON "probe" Go
$!EXPORTSETUP ExportFormat = AVI
$!EXPORTSETUP ExportFormat = FLV
$!EXPORTSETUP ExportFormat = FLASH
$!EXPORTSETUP ExportFormat = MPEG4
$!EXPORTSETUP ExportFormat = RASTERMETAFILE
$!EXPORTSETUP ExportFormat = WMV
$!exportsetup exportformat = wmv
$!EXPORTSETUP ExportRegion = CURRENTFRAME
$!EXPORTSETUP ExportRegion = ALLFRAMES
$!EXPORTSETUP ExportRegion = WORKAREA
$!EXPORTSETUP ImageWidth = 1000
$!EXPORTSETUP AnimationSpeed = 12.5
$!EXPORTSETUP AnimationSpeed = 0.333333
$!EXPORTSETUP UseSuperSampleAntiAliasing = true
$!EXPORTSETUP UseSuperSampleAntiAliasing = false
$!EXPORTSETUP SuperSampleFactor = 16
$!EXPORTSETUP FlashImageType = LOSSLESS
$!EXPORTSETUP FlashImageType = JPEG
$!EXPORTSETUP FlashImageType = 256COLOR
$!EXPORTSETUP FlashCompressionType = BESTSPEED
$!EXPORTSETUP FlashCompressionType = SMALLESTSIZE
$!EXPORTSETUP ExportFName = "movie.mp4"
$!EXPORTSETUP ExportFName = "say "hi".mp4"
$!EXPORTSETUP ExportFName = ""
$!EXPORTSETUP	ImageWidth=640  
$!EXPORTSETUP ExportFormat = MPEG4

$!EXPORTSETUP ExportRegion = CURRENTFRAME

$!EXPORTSETUP ImageWidth = 800

$!EXPORTSETUP AnimationSpeed = 10

$!EXPORTSETUP UseSuperSampleAntiAliasing = false

$!EXPORTSETUP ExportFName = "movie.mp4"

$!SET GlobalThreeD LightSource Intensity = 42.5
$!SET ExportSetup ImageWidth = 640
$!SET ThreeDAxis FrameAxis Show = FALSE
$!SET ExportSetup ExportFName = "a b = c.mp4"
$!set threedview viewwidth = 2.5
$!SET StreamAttributes StreamTiming TimeAnchor = 0.25
$!SET ThreeDView ViewWidth: there is no frame.
$!SET ThreeDView ViewWidth = 2
$!VIEW 1.5 -2 3e1 400 -50 +6 0.75
$!VIEW 1 2 3 4 5 6 7
$!SOLUTIONTIME 0.6
$!PLOTTYPE 2
$!PLOTTYPE 1
$!NEWFRAME 3
$!NEWFRAME 1
$!DELETEFRAMES
$!ZONE 0.25 3
$!REDRAW
$!REDRAW
$!SNAPSHOT   "view 1.png"  
$!Snapshot
$!UI PRESS OK
$!SOLUTIONTIME 0.5

$!EXPORTSETUP ExportFormat = AVI

$!UI PRESS OK

$!SNAPSHOT "a.png"

$!REDRAW

$!view 1 2 3 4 5 6 7
$!SOLUTIONTIME 0.5
$!EXPORTSETUP ExportFormat = AVI
$!SNAPSHOT "a.png"
$!REDRAW
$!ADDON "Probe" Go
$!ADDON "Probe" Record
$!ADDON "Probe" Record
$!VIEW 1 2 3 4 5 6 7
$!SOLUTIONTIME x
$!SOLUTIONTIME 0.5
$!ADDON "Probe" QueueIdle
$!NOPE
$!ADDON "Probe" Ask
$!ADDON "Probe" Ask
$!ADDON "Probe" KeepLock
$!ADDON "Probe" KeepDrawingSuspended
$!ADDON "Probe" KeepStatusOpen
$!NOPE
$!REDRAW
$!ADDON "Probe" Fail
$!REDRAW

$!NOPE".
$!NOPE".
$!
$!ADDON
$!VIEW
$!SET
$!EXPORTSETUP
$!ZONE
$!SOLUTIONTIME
$!REDRAW
$!PLOTTYPE
$!NEWFRAME
