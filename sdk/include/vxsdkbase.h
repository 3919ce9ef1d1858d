/*
 * Vexplot SDK: the base library (vxsdkbase).
 *
 * The VexUtil... functions through which an add-on reaches the host: locking and registration,
 * frames, the 3D view, style values, the data set and solution time, drawing, the percent-done
 * status, the idle queue, state changes, macros, export, message boxes and host memory.
 *
 * Conventions of the whole SDK:
 * - Plain C types only: fixed-width integers, double, bool, UTF-8 `const char*`, opaque handles.
 * - Strings, arrays, sets and string lists that the host hands out are owned by the caller and
 *   must be given back with the matching dealloc call; the host counts what is outstanding.
 * - Every call runs on the host's user-interface thread. Calls that change host state are made
 *   between VexUtilLockStart and VexUtilLockFinish of the calling add-on.
 * - Positions of list controls, option menus, radio boxes, zones and set members count from 1.
 */
#ifndef VXSDKBASE_H
#define VXSDKBASE_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#if defined(__GNUC__)
#define VEXSDK_API __attribute__((visibility("default")))
#else
#define VEXSDK_API
#endif

#ifdef __cplusplus
#define VEXSDK_EXTERN_C extern "C"
#else
#define VEXSDK_EXTERN_C
#endif

/* The entry point that every add-on exports; the host calls it once after loading the library. */
#define VEXSDK_ADDON_ENTRY_POINT "InitVexAddOn113"
#define EXPORTFROMADDON VEXSDK_EXTERN_C __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Handles and scalar types ---------------------------------------------------------------- */

typedef struct VexAddOn_s* VexAddOn_pa;        /* a registered add-on */
typedef struct VexSet_s* VexSet_pa;            /* a host set of 1-based members */
typedef struct VexStringList_s* VexStringList_pa; /* a host list of strings */
typedef int64_t VexSetIndex_t;                 /* a set member; VEX_SET_NO_MEMBER for none */
typedef int64_t VexUniqueID_t;                 /* a frame's unique id */
typedef intptr_t VexArbParam_t;                /* an integer or a pointer, as the call says */

#define VEX_SET_NO_MEMBER ((VexSetIndex_t)0)
#define VEX_BAD_ID ((VexUniqueID_t)0)

/* ---- Enumerations ---------------------------------------------------------------------------- */

typedef enum {
    VexPlotType_Sketch = 0,
    VexPlotType_Cartesian3D = 1,
    VexPlotType_Cartesian2D = 2,
    VexPlotType_XYLine = 3,
    VexPlotType_PolarLine = 4
} VexPlotType_e;

typedef enum {
    VexRotateAxis_X = 0,
    VexRotateAxis_Y = 1,
    VexRotateAxis_Z = 2,
    VexRotateAxis_Psi = 3,
    VexRotateAxis_Theta = 4,
    VexRotateAxis_Alpha = 5,
    VexRotateAxis_AboutVector = 6
} VexRotateAxis_e;

typedef enum {
    VexRotateOriginLocation_DefinedOrigin = 0, /* the view's rotation origin */
    VexRotateOriginLocation_Viewer = 1
} VexRotateOriginLocation_e;

typedef enum {
    VexSetValue_Ok = 0,
    VexSetValue_DuplicateValue = 1,
    VexSetValue_InvalidCommandOption = 2,
    VexSetValue_InvalidValue = 3,
    VexSetValue_ContextError = 4
} VexSetValueReturnCode_e;

typedef enum {
    VexGetValue_Ok = 0,
    VexGetValue_InvalidPath = 1,
    VexGetValue_WrongType = 2,
    VexGetValue_ContextError = 3
} VexGetValueReturnCode_e;

typedef enum {
    VexMessageBox_Error = 0,
    VexMessageBox_Warning = 1,
    VexMessageBox_Information = 2,
    VexMessageBox_Question = 3, /* OK / Cancel */
    VexMessageBox_YesNo = 4
} VexMessageBoxType_e;

/* Coordinate systems for VexUtilConvertXDimension / VexUtilConvertYDimension. */
typedef enum {
    VexCoordSys_Grid = 0,
    VexCoordSys_Frame = 1, /* percent of the frame */
    VexCoordSys_Grid3D = 2,
    VexCoordSys_Paper = 3,  /* inches on the paper, where frames are placed */
    VexCoordSys_Screen = 4, /* pixels */
    VexCoordSys_Hardcopy = 5
} VexCoordSys_e;

/* Export formats of the host (the ExportSetup "ExportFormat" value). */
typedef enum {
    VexExportFormat_RasterMetafile = 0,
    VexExportFormat_TIFF = 1,
    VexExportFormat_SGI = 2,
    VexExportFormat_SunRaster = 3,
    VexExportFormat_XWindows = 4,
    VexExportFormat_PSImage = 5,
    VexExportFormat_HPGL = 6,
    VexExportFormat_HPGL2 = 7,
    VexExportFormat_PS = 8,
    VexExportFormat_EPS = 9,
    VexExportFormat_LaserGraphics = 10,
    VexExportFormat_WindowsMetafile = 11,
    VexExportFormat_BMP = 12,
    VexExportFormat_PNG = 13,
    VexExportFormat_AVI = 14,
    VexExportFormat_Custom = 15,
    VexExportFormat_JPEG = 16,
    VexExportFormat_Flash = 17,
    VexExportFormat_X3D = 18,
    VexExportFormat_ViewerFile = 19,
    VexExportFormat_FLV = 20,
    VexExportFormat_MPEG4 = 21,
    VexExportFormat_WMV = 22
} VexExportFormat_e;

typedef enum {
    VexExportRegion_CurrentFrame = 0,
    VexExportRegion_AllFrames = 1,
    VexExportRegion_WorkArea = 2
} VexExportRegion_e;

typedef enum {
    VexFlashImageType_Lossless = 0,
    VexFlashImageType_JPEG = 1,
    VexFlashImageType_Color256 = 2
} VexFlashImageType_e;

typedef enum {
    VexFlashCompressionType_BestSpeed = 0,
    VexFlashCompressionType_SmallestSize = 1
} VexFlashCompressionType_e;

/* State change codes sent to state change callbacks. */
typedef enum {
    VexStateChange_FrameDeleted = 1,
    VexStateChange_NewTopFrame = 2,
    VexStateChange_PlotType = 3,
    VexStateChange_DataSetReset = 4,
    VexStateChange_ZonesAdded = 5,
    VexStateChange_Style = 6,
    VexStateChange_View = 7,
    VexStateChange_SolutionTime = 8,
    VexStateChange_FrameCreated = 9,
    VexStateChange_QuitProgram = 15
} VexStateChange_e;

/* State change modes for VexUtilStateChangeAddCallback. */
typedef enum {
    VexStateChangeMode_v75 = 0,
    VexStateChangeMode_v80 = 1,
    VexStateChangeMode_v100 = 2
} VexStateChangeMode_e;

/* ---- Callback types -------------------------------------------------------------------------- */

/* Returns true when the command ran; on failure fills *errMsg with a host string (VexUtilStringAlloc)
 * that the host frees. */
typedef bool (*VexMacroCommandCallback_pf)(const char* commandString, char** errMsg);
typedef void (*VexOnIdleCallback_pf)(void* clientData);
typedef void (*VexStateChangeCallback_pf)(int32_t stateChange, void* clientData);

/* ---- Locking and registration ---------------------------------------------------------------- */

/* The host's own lock, for the entry point before the add-on is registered. */
VEXSDK_API void VexUtilLockOn(void);
VEXSDK_API void VexUtilLockOff(void);
/* Re-entrant; every start is matched by one finish with the same handle. */
VEXSDK_API void VexUtilLockStart(VexAddOn_pa addOn);
VEXSDK_API void VexUtilLockFinish(VexAddOn_pa addOn);
VEXSDK_API bool VexUtilLockIsOn(void);

VEXSDK_API VexAddOn_pa VexUtilAddOnRegister(int32_t sdkVersion, const char* name,
                                            const char* versionText, const char* author);

/* ---- Frames ---------------------------------------------------------------------------------- */

VEXSDK_API int32_t VexUtilFrameGetCount(void);
/* Plot type of the active frame; VexPlotType_Sketch when there is no frame. */
VEXSDK_API VexPlotType_e VexUtilFrameGetPlotType(void);
/* Unique id of the current frame (the active one, or the one visited by lightweight popping). */
VEXSDK_API VexUniqueID_t VexUtilFrameGetUniqueID(void);
VEXSDK_API bool VexUtilFrameActivateTop(void);
/* Moves the top frame to the back of the stack; the new top becomes active. */
VEXSDK_API bool VexUtilFramePushTop(void);
VEXSDK_API bool VexUtilFrameActivateByUniqueID(VexUniqueID_t uniqueID);
/* Visits every frame, top first, without reordering: start at the top frame, next moves on. */
VEXSDK_API bool VexUtilFrameLightweightPopStart(void);
VEXSDK_API bool VexUtilFrameLightweightPopNext(void);
VEXSDK_API void VexUtilFrameLightweightPopEnd(void);
/* Position and size of the current frame, in paper inches. */
VEXSDK_API void VexUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height);
VEXSDK_API double VexUtilConvertXDimension(VexCoordSys_e oldCoordSys, VexCoordSys_e newCoordSys,
                                           double value);
VEXSDK_API double VexUtilConvertYDimension(VexCoordSys_e oldCoordSys, VexCoordSys_e newCoordSys,
                                           double value);
/* Size of the host's work area, in screen pixels. */
VEXSDK_API void VexUtilWorkAreaGetDimensions(int32_t* width, int32_t* height);

/* ---- 3D view of the active frame ------------------------------------------------------------- */

VEXSDK_API void VexUtilThreeDViewGetViewerPos(double* x, double* y, double* z);
/* Psi, theta and alpha in radians. */
VEXSDK_API void VexUtilThreeDViewGetViewerAngle(double* psi, double* theta, double* alpha);
VEXSDK_API void VexUtilThreeDViewGetProjection(double* fieldOfView, double* viewWidth,
                                               bool* isInPerspective);
/* Rotates the view by `degrees` about the axis; the viewer moves rigidly about the origin chosen by
 * `originLocation`. The vector is used only by VexRotateAxis_AboutVector. */
VEXSDK_API bool VexUtilViewRotate3D(VexRotateAxis_e axis, double degrees, double vectorX,
                                    double vectorY, double vectorZ,
                                    VexRotateOriginLocation_e originLocation);

/* ---- Style values ---------------------------------------------------------------------------- */

/* One argument of an X-call: a name and a typed value. Built by the toolbox ArgList class. */
typedef enum {
    VexArgType_String = 0,
    VexArgType_Double = 1,
    VexArgType_Int = 2,
    VexArgType_Bool = 3,
    VexArgType_DoublePtr = 4,
    VexArgType_IntPtr = 5,
    VexArgType_BoolPtr = 6,
    VexArgType_StringPtr = 7 /* receives a host string */
} VexArgType_e;

typedef struct {
    const char* name;
    VexArgType_e type;
    union {
        const char* s;
        double d;
        int64_t i;
        bool b;
        double* dp;
        int64_t* ip;
        bool* bp;
        char** sp;
    } value;
} VexArg_s;

/* Argument names of the style calls. */
#define VEXARG_P1 "P1"
#define VEXARG_P2 "P2"
#define VEXARG_P3 "P3"
#define VEXARG_P4 "P4"
#define VEXARG_P5 "P5"
#define VEXARG_P6 "P6"
#define VEXARG_VALUE "VALUE"

/* Sets a style value addressed by its macro-name path (P1 .. P6) to VALUE. */
VEXSDK_API VexSetValueReturnCode_e VexUtilStyleSetLowLevelX(const VexArg_s* args, int32_t count);
/* Reads the style value at P1 .. P6 into the pointer given as VALUE (its type chooses the
 * conversion; a string value is returned as a host string). */
VEXSDK_API VexGetValueReturnCode_e VexUtilStyleGetLowLevelX(const VexArg_s* args, int32_t count);

/* ---- Data set and solution time -------------------------------------------------------------- */

VEXSDK_API bool VexUtilDataSetIsAvailable(void);
VEXSDK_API int32_t VexUtilDataSetGetNumZones(void);
VEXSDK_API double VexUtilSolutionTimeGetCurrent(void);
VEXSDK_API VexSetValueReturnCode_e VexUtilSolutionTimeSetCurrent(double solutionTime);
/* The enabled zones of the active frame's data set, as a new host set. */
VEXSDK_API bool VexUtilZoneGetEnabled(VexSet_pa* enabledZones);
VEXSDK_API double VexUtilZoneGetSolutionTime(int32_t zone);
VEXSDK_API int32_t VexUtilZoneGetStrandID(int32_t zone);

VEXSDK_API VexSetIndex_t VexUtilSetGetNextMember(VexSet_pa set, VexSetIndex_t member);
VEXSDK_API VexSetIndex_t VexUtilSetGetMemberCount(VexSet_pa set);
VEXSDK_API void VexUtilSetDealloc(VexSet_pa* set);

/* ---- Drawing --------------------------------------------------------------------------------- */

/* Suspends (false) or resumes (true) drawing; suspensions nest. */
VEXSDK_API void VexUtilDrawGraphics(bool doDrawing);
VEXSDK_API bool VexUtilRedraw(bool doFullDrawing);

/* ---- Percent-done status --------------------------------------------------------------------- */

VEXSDK_API bool VexUtilStatusStartPercentDone(const char* text, bool showStopButton,
                                              bool showProgressBar);
VEXSDK_API void VexUtilStatusSetPercentDoneText(const char* text);
/* Returns false when the user pressed Stop. */
VEXSDK_API bool VexUtilStatusCheckPercentDone(int32_t percentDone);
VEXSDK_API void VexUtilStatusFinishPercentDone(void);

/* ---- Idle queue and state changes ------------------------------------------------------------ */

VEXSDK_API bool VexUtilOnIdleQueueAddCallback(VexOnIdleCallback_pf callback, void* clientData);
VEXSDK_API bool VexUtilStateChangeAddCallback(VexStateChangeMode_e mode,
                                              VexStateChangeCallback_pf callback,
                                              void* clientData);
VEXSDK_API bool VexUtilStateChangeRemoveCallback(VexStateChangeCallback_pf callback,
                                                 void* clientData);

/* ---- Macros ---------------------------------------------------------------------------------- */

VEXSDK_API bool VexUtilMacroAddCommandCallback(const char* addOnName,
                                               VexMacroCommandCallback_pf callback);
VEXSDK_API bool VexUtilMacroIsRecordingActive(void);
/* Records the line: $!ADDON "<addOnName>" <commandString> */
VEXSDK_API bool VexUtilMacroRecordExtCommand(const char* addOnName, const char* commandString);
/* Records one macro line as it stands. */
VEXSDK_API bool VexUtilMacroRecordRawCommand(const char* command);

/* ---- Export ---------------------------------------------------------------------------------- */

/* Sets one export setup attribute ("ExportFormat", "ImageWidth", "ExportFName", ...). Enumerations,
 * integers and booleans travel in intValue, doubles in doubleValue, the file name as a
 * `const char*` in intValue. */
VEXSDK_API VexSetValueReturnCode_e VexUtilExportSetup(const char* attribute,
                                                      const char* subAttribute,
                                                      double doubleValue, VexArbParam_t intValue);
VEXSDK_API bool VexUtilExportIsRecording(void);
/* Opens the movie export and takes the current picture as its first frame. */
VEXSDK_API bool VexUtilExportStart(void);
VEXSDK_API bool VexUtilExportNextFrame(void);
VEXSDK_API bool VexUtilExportFinish(void);
VEXSDK_API bool VexUtilExportCancel(void);

/* ---- Messages -------------------------------------------------------------------------------- */

VEXSDK_API void VexUtilDialogErrMsg(const char* message);
/* Yes/No and OK/Cancel boxes return true for Yes/OK; the other types return true. */
VEXSDK_API bool VexUtilDialogMessageBox(const char* message, VexMessageBoxType_e boxType);

/* ---- Host memory ----------------------------------------------------------------------------- */

/* A writable buffer of maxLength characters plus the terminating NUL; NULL when refused. */
VEXSDK_API char* VexUtilStringAlloc(int32_t maxLength, const char* debugInfo);
VEXSDK_API void VexUtilStringDealloc(char** string);
VEXSDK_API void VexUtilArrayDealloc(void** array);

VEXSDK_API VexStringList_pa VexUtilStringListAlloc(void);
VEXSDK_API bool VexUtilStringListAppendString(VexStringList_pa list, const char* string);
VEXSDK_API int32_t VexUtilStringListGetCount(VexStringList_pa list);
/* A host string copy of the 1-based entry. */
VEXSDK_API char* VexUtilStringListGetString(VexStringList_pa list, int32_t position);
VEXSDK_API void VexUtilStringListDealloc(VexStringList_pa* list);

#ifdef __cplusplus
}
#endif

#endif /* VXSDKBASE_H */
