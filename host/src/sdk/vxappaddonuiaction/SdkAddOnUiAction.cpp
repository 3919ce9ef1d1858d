// The add-on UI action library (vxappaddonuiaction.h): menu items of add-ons, the host's file
// dialogs and its help.
#include <optional>
#include <string>

#include "sdk/SdkCall.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/UserDialogs.h"
#include "vxappaddonuiaction.h"

using vexhost::sdk::SdkCall;

bool VexUtilMenuAddOption(const char* menuPath, const char* label, int32_t mnemonic,
                          VexMenuCallback_pf callback) {
    SdkCall call("VexUtilMenuAddOption", menuPath, label, mnemonic);
    return call.host().addOns().addMenuOption(menuPath, label, mnemonic, callback);
}

bool VexUtilDialogGetFileName(VexSelectFileOption_e dialogOption, char** fileName,
                              const char* fileTypeName, const char* defaultFileName,
                              const char* defaultFilter) {
    SdkCall call("VexUtilDialogGetFileName", dialogOption, fileTypeName, defaultFileName,
                 defaultFilter);
    if (fileName == nullptr) {
        call.error("no place for the file name was given");
        return false;
    }
    *fileName = nullptr;
    if (dialogOption < VexSelectFile_ReadSingleFile || dialogOption > VexSelectFile_WriteFile) {
        call.error("unknown file dialog mode " + std::to_string(dialogOption));
        return false;
    }
    const std::optional<std::string> answer = call.host().userDialogs().askFileName(
        dialogOption, fileTypeName, defaultFileName, defaultFilter);
    if (!answer)
        return false;
    *fileName = call.host().bookkeeping().copyString(*answer);
    return *fileName != nullptr;
}

bool VexUtilHelp(const char* helpPage) {
    SdkCall call("VexUtilHelp", helpPage);
    if (helpPage == nullptr) {
        call.error("the help page is missing");
        return false;
    }
    call.host().userDialogs().showHelp(helpPage);
    return true;
}
