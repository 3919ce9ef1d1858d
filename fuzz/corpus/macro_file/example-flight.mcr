$!ADDON "Key Frame Animation" OpenSettingsFile FileName=small.keyframe
$!ADDON "Key Frame Animation" Animate AnimationDestination=OnScreen
