/*
 * Vexplot SDK: the GUI library (vexgui).
 *
 * Dialogs and their controls. Positions and sizes are in host dialog units. Every creating call
 * returns the new control's id (a positive number) or VEXGUI_BAD_ID when it failed. List lines,
 * option menu entries and radio buttons count from 1. A callback receives the clientData that was
 * given when its control was created.
 */
#ifndef VEXGUI_H
#define VEXGUI_H

#include "vxsdkbase.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The id of a control that does not exist (also the add-on's "not created yet"). */
#define VEXGUI_BAD_ID (-2)
/* Parent id of a dialog that belongs to no other dialog. */
#define VEXGUI_MAIN_DIALOG_PARENT (-1)

typedef void (*VexGUIVoidCallback_pf)(void* clientData);
/* Option menus, radio boxes, toggles and lists: the 1-based choice, toggle number or on/off (1/0). */
typedef void (*VexGUIIntCallback_pf)(int32_t value, void* clientData);
/* Text fields: the text as entered. */
typedef void (*VexGUITextCallback_pf)(const char* text, void* clientData);

/* ---- Dialogs --------------------------------------------------------------------------------- */

VEXSDK_API int32_t VexGUIDialogCreateModeless(int32_t parentDialogId, int32_t width, int32_t height,
                                              const char* title, VexGUIVoidCallback_pf init,
                                              VexGUIVoidCallback_pf close,
                                              VexGUIVoidCallback_pf help, void* clientData);
/* apply may be NULL: the dialog then has no Apply button. */
VEXSDK_API int32_t VexGUIDialogCreateModal(int32_t parentDialogId, int32_t width, int32_t height,
                                           const char* title, VexGUIVoidCallback_pf init,
                                           VexGUIVoidCallback_pf ok, VexGUIVoidCallback_pf apply,
                                           VexGUIVoidCallback_pf cancel,
                                           VexGUIVoidCallback_pf help, void* clientData);
/* Shows the dialog and runs its init callback. */
VEXSDK_API void VexGUIDialogLaunch(int32_t dialogId);
VEXSDK_API void VexGUIDialogDrop(int32_t dialogId);
VEXSDK_API bool VexGUIDialogIsUp(int32_t dialogId);

/* ---- Simple controls ------------------------------------------------------------------------- */

VEXSDK_API int32_t VexGUIButtonAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                   int32_t height, const char* label,
                                   VexGUIVoidCallback_pf pressed, void* clientData);
VEXSDK_API int32_t VexGUILabelAdd(int32_t parentDialogId, int32_t x, int32_t y, const char* label);
VEXSDK_API void VexGUILabelSetText(int32_t labelId, const char* label);
VEXSDK_API int32_t VexGUIFrameAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                  int32_t height, const char* label);
VEXSDK_API int32_t VexGUIToggleAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                   int32_t height, const char* label,
                                   VexGUIIntCallback_pf valueChanged, void* clientData);
VEXSDK_API bool VexGUIToggleGet(int32_t toggleId);
VEXSDK_API void VexGUIToggleSet(int32_t toggleId, bool isOn);

/* ---- Text fields ----------------------------------------------------------------------------- */

/* valueChanged fires when the user enters text (Return or leaving the field). */
VEXSDK_API int32_t VexGUITextFieldAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                      int32_t height, VexGUITextCallback_pf valueChanged,
                                      void* clientData);
VEXSDK_API int32_t VexGUISpinTextFieldAdd(int32_t parentDialogId, int32_t x, int32_t y,
                                          int32_t width, int32_t height,
                                          VexGUITextCallback_pf valueChanged,
                                          VexGUIVoidCallback_pf upPressed,
                                          VexGUIVoidCallback_pf downPressed, void* clientData);
VEXSDK_API void VexGUITextFieldSetString(int32_t textFieldId, const char* text);
/* A host string copy of the field's text. */
VEXSDK_API char* VexGUITextFieldGetString(int32_t textFieldId);

/* ---- Lists ----------------------------------------------------------------------------------- */

VEXSDK_API int32_t VexGUIListAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                 int32_t height, bool isMultiSelection,
                                 VexGUIIntCallback_pf selectionChanged, void* clientData);
VEXSDK_API void VexGUIListAppendItem(int32_t listId, const char* text);
VEXSDK_API void VexGUIListReplaceItem(int32_t listId, const char* text, int32_t position);
VEXSDK_API void VexGUIListDeleteItemAtPos(int32_t listId, int32_t position);
VEXSDK_API void VexGUIListDeleteAllItems(int32_t listId);
VEXSDK_API int32_t VexGUIListGetItemCount(int32_t listId);
/* The selected positions in ascending order, as a host array freed with VexUtilArrayDealloc
 * (NULL and a count of 0 when nothing is selected). */
VEXSDK_API void VexGUIListGetSelectedItems(int32_t listId, int32_t** selectedItems,
                                           int32_t* selectedCount);
VEXSDK_API void VexGUIListSetSelectedItem(int32_t listId, int32_t position);
VEXSDK_API void VexGUIListSetSelectedItems(int32_t listId, const int32_t* positions,
                                           int32_t count);
VEXSDK_API void VexGUIListDeselectAllItems(int32_t listId);

/* ---- Option menus and radio boxes ------------------------------------------------------------ */

VEXSDK_API int32_t VexGUIOptionMenuAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                       int32_t height, VexGUIIntCallback_pf valueChanged,
                                       void* clientData);
VEXSDK_API void VexGUIOptionMenuAppendItem(int32_t optionMenuId, const char* text);
VEXSDK_API void VexGUIOptionMenuDeleteAllItems(int32_t optionMenuId);
/* The 1-based chosen entry; 0 when the menu is empty. */
VEXSDK_API int32_t VexGUIOptionMenuGet(int32_t optionMenuId);
VEXSDK_API void VexGUIOptionMenuSet(int32_t optionMenuId, int32_t position);

/* One radio button per entry of the list, numbered from 1. */
VEXSDK_API int32_t VexGUIRadioBoxAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                                     int32_t height, VexStringList_pa labels,
                                     VexGUIIntCallback_pf toggled, void* clientData);
/* The 1-based toggle that is on; 0 when none is. */
VEXSDK_API int32_t VexGUIRadioBoxGetToggle(int32_t radioBoxId);
VEXSDK_API void VexGUIRadioBoxSetToggle(int32_t radioBoxId, int32_t toggle);

/* ---- Menu bars ------------------------------------------------------------------------------- */

VEXSDK_API int32_t VexGUIMenuBarAdd(int32_t dialogId);
VEXSDK_API int32_t VexGUIMenuAdd(int32_t menuBarOrMenuId, const char* label);
VEXSDK_API int32_t VexGUIMenuAddItem(int32_t menuId, const char* label,
                                     VexGUIVoidCallback_pf activated, void* clientData);
VEXSDK_API int32_t VexGUIMenuAddToggle(int32_t menuId, const char* label,
                                       VexGUIIntCallback_pf toggled, void* clientData);
VEXSDK_API void VexGUIMenuSetToggle(int32_t menuToggleId, bool isOn);

/* ---- Any control ----------------------------------------------------------------------------- */

VEXSDK_API void VexGUISetSensitivity(int32_t controlId, bool isSensitive);
VEXSDK_API void VexGUISetToolTip(int32_t controlId, const char* toolTip);

#ifdef __cplusplus
}
#endif

#endif /* VEXGUI_H */
