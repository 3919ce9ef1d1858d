// fuzz_macro_command: any text as a command string of the Key Frame Animation add-on, handed to the
// add-on's macro command callback as the host's macro player hands it over, with a host set up so
// that commands really run (FuzzHost): files are opened and saved in the scratch directory, and
// animations run the short flight of the dialog's state, on screen or to a movie.
//
// Rules: the callback answers; a failure comes with the add-on's heading and a message; a command
// that failed changed neither the dialog's key frame list nor its settings (but the destination,
// which Animate sets before its run, on purpose); the host is left as FuzzHost::checkHost
// requires, without host errors.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzHost.h"
#include "FuzzSupport.h"
#include "addon/AddOn.h"
#include "ui/DialogMain.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"

using namespace vexplot::vexutiltools;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    vexfuzz::enterScratchDirectory(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static vexfuzz::FuzzHost fuzzHost;
    const std::string command(reinterpret_cast<const char*>(data), size);
    if (!vexfuzz::FuzzHost::staysInScratch(command))
        return 0;

    fuzzHost.reset();
    vexhost::Host& host = vexhost::Host::instance();
    DialogMain& dialog = DialogMain::instance();
    const std::vector<KeyFrame_s> keyFramesBefore = dialog.getKeyFrameModel().getItems();
    const AnimationSettings_s settingsBefore = dialog.getSettings();

    const vexhost::AddOnRegistry::CommandResult result =
        host.addOns().runMacroCommand(AddOn::Name, command);
    host.idleQueue().runUntilEmpty();

    if (!result.ok) {
        vexfuzz::expect(
            result.error.rfind("Key Frame Animation error:\n", 0) == 0 && result.error.size() > 27,
            "a failed command came without the add-on's heading and a message");
        AnimationSettings_s settingsAfter = dialog.getSettings();
        settingsAfter.Destination = settingsBefore.Destination;
        vexfuzz::expect(dialog.getKeyFrameModel().getItems() == keyFramesBefore &&
                            settingsAfter == settingsBefore,
                        "a failed command changed the dialog's list or settings");
    }
    vexfuzz::expect(
        host.errors().empty(),
        "host errors: " + (host.errors().empty() ? std::string() : host.errors().texts().front()));
    fuzzHost.checkHost();
    return 0;
}
