/*
 * Vexplot SDK: the add-on UI action library (vxappaddonuiaction).
 *
 * Menu entries of add-ons, the host's file dialogs and its help.
 */
#ifndef VXAPPADDONUIACTION_H
#define VXAPPADDONUIACTION_H

#include "vxsdkbase.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*VexMenuCallback_pf)(void);

/* File dialog modes. */
typedef enum {
    VexSelectFile_ReadSingleFile = 0,
    VexSelectFile_ReadMultiFile = 1,
    VexSelectFile_ReadSingleFileNoList = 2,
    VexSelectFile_WriteFile = 3
} VexSelectFileOption_e;

/* Adds an item to the host menu named by menuPath ("Animate"). The label marks its mnemonic with
 * '&'; mnemonic is the item's place among the add-on items of that menu. */
VEXSDK_API bool VexUtilMenuAddOption(const char* menuPath, const char* label, int32_t mnemonic,
                                     VexMenuCallback_pf callback);

/* Shows the host file dialog. On true, *fileName is a host string (VexUtilStringDealloc). */
VEXSDK_API bool VexUtilDialogGetFileName(VexSelectFileOption_e dialogOption, char** fileName,
                                         const char* fileTypeName, const char* defaultFileName,
                                         const char* defaultFilter);

/* Opens the host help at the page and anchor ("addons.html#..."). */
VEXSDK_API bool VexUtilHelp(const char* helpPage);

#ifdef __cplusplus
}
#endif

#endif /* VXAPPADDONUIACTION_H */
