// A small add-on that vexplot's end-to-end tests load with --addon. It is compiled against the SDK
// headers only, as any add-on is, and does through the SDK what the tests need to watch vexplot
// handle: questions, file dialogs, progress with Stop, idle work, recording, redraws, error
// dialogs and failures. It registers as "Probe"; its macro commands are a word and a text:
//   Ask <question>     a Yes/No question; then an information box "Answer: Yes" or "Answer: No"
//   ChooseFile         a file dialog; then "File: <name>" or "File: canceled"
//   Fail <message>     fails with the message
//   Progress <n>       a status "Working." with Stop checked n times; "Done." or fails
//                      "Stopped at check <k>."
//   Idle <text>        queues idle work that shows the text in an information box
//   Redraw             redraws the active frame; while a macro is recorded, records itself
//   Export <n>         exports n frames of the active frame as a movie
//   FrameSize          shows the active frame's size in pixels: "Frame: 640 x 480"
//   Error <text>       shows the text in an error dialog and succeeds
// On the host's shutting-down state change it shows "Probe heard the shutdown.".
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <string>

#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace {

VexAddOn_pa addOn = nullptr;
std::deque<std::string> idleTexts;

class Lock {
public:
    Lock() { VexUtilLockStart(addOn); }
    ~Lock() { VexUtilLockFinish(addOn); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
};

void inform(const std::string& text) {
    VexUtilDialogMessageBox(text.c_str(), VexMessageBox_Information);
}

bool failWith(const std::string& message, char** errMsg) {
    char* text = VexUtilStringAlloc(static_cast<int32_t>(message.size()), "probe error");
    if (text != nullptr) {
        std::memcpy(text, message.c_str(), message.size() + 1);
        *errMsg = text;
    }
    return false;
}

void showIdleText(void*) {
    if (idleTexts.empty())
        return;
    inform(idleTexts.front());
    idleTexts.pop_front();
}

bool progress(long checks, char** errMsg) {
    Lock lock;
    VexUtilStatusStartPercentDone("Working.", true, true);
    for (long k = 1; k <= checks; ++k) {
        if (!VexUtilStatusCheckPercentDone(static_cast<int32_t>(k * 100 / checks))) {
            VexUtilStatusFinishPercentDone();
            return failWith("Stopped at check " + std::to_string(k) + ".", errMsg);
        }
    }
    VexUtilStatusFinishPercentDone();
    inform("Done.");
    return true;
}

bool macroCommand(const char* commandString, char** errMsg) {
    const std::string command = commandString;
    const std::size_t blank = command.find(' ');
    const std::string word = command.substr(0, blank);
    const std::string text = blank == std::string::npos ? "" : command.substr(blank + 1);
    if (word == "Ask") {
        const bool yes = VexUtilDialogMessageBox(text.c_str(), VexMessageBox_YesNo);
        inform(yes ? "Answer: Yes" : "Answer: No");
    } else if (word == "ChooseFile") {
        char* name = nullptr;
        if (VexUtilDialogGetFileName(VexSelectFile_WriteFile, &name, "Probe", "probe.txt",
                                     "*.txt")) {
            inform(std::string("File: ") + name);
            VexUtilStringDealloc(&name);
        } else {
            inform("File: canceled");
        }
    } else if (word == "Fail") {
        return failWith(text, errMsg);
    } else if (word == "Progress") {
        return progress(std::strtol(text.c_str(), nullptr, 10), errMsg);
    } else if (word == "Idle") {
        idleTexts.push_back(text);
        VexUtilOnIdleQueueAddCallback(showIdleText, nullptr);
    } else if (word == "Redraw") {
        Lock lock;
        VexUtilRedraw(true);
        if (VexUtilMacroIsRecordingActive())
            VexUtilMacroRecordExtCommand("Probe", "Redraw");
    } else if (word == "Export") {
        Lock lock;
        if (!VexUtilExportStart())
            return failWith("The export did not start.", errMsg);
        for (long k = 1; k < std::strtol(text.c_str(), nullptr, 10); ++k)
            VexUtilExportNextFrame();
        VexUtilExportFinish();
    } else if (word == "FrameSize") {
        double x = 0, y = 0, width = 0, height = 0;
        VexUtilFrameGetPosAndSize(&x, &y, &width, &height);
        const long w =
            std::lround(VexUtilConvertXDimension(VexCoordSys_Paper, VexCoordSys_Screen, width));
        const long h =
            std::lround(VexUtilConvertYDimension(VexCoordSys_Paper, VexCoordSys_Screen, height));
        inform("Frame: " + std::to_string(w) + " x " + std::to_string(h));
    } else if (word == "Error") {
        VexUtilDialogErrMsg(text.c_str());
    } else {
        return failWith("Probe does not know " + word + ".", errMsg);
    }
    return true;
}

void stateChanged(int32_t stateChange, void*) {
    if (stateChange == VexStateChange_QuitProgram)
        inform("Probe heard the shutdown.");
}

}  // namespace

EXPORTFROMADDON void InitVexAddOn113(void) {
    VexUtilLockOn();
    addOn = VexUtilAddOnRegister(113, "Probe", "1.0", "vexplot tests");
    VexUtilMacroAddCommandCallback("Probe", macroCommand);
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, stateChanged, nullptr);
    VexUtilLockOff();
}
