// The add-ons the host knows: registrations (VexUtilAddOnRegister), their menu items
// (VexUtilMenuAddOption) and their macro command callbacks (VexUtilMacroAddCommandCallback).
//
// Handles stay valid until the host is reset. The control side chooses a menu item as a user would
// and runs an add-on's macro command as the macro player does ("$!ADDON ..."); neither takes the
// host lock, because the add-on's callbacks take it themselves.
#ifndef VEXHOST_ADDONREGISTRY_H
#define VEXHOST_ADDONREGISTRY_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace vexhost {

class Bookkeeping;
class HostErrors;

class AddOnRegistry {
public:
    struct AddOn {
        int32_t sdkVersion = 0;
        std::string name;
        std::string versionText;
        std::string author;
    };
    struct MenuOption {
        std::string menuPath;  // "Animate"
        std::string label;     // "&Key Frame Animation...", '&' before the mnemonic letter
        int32_t mnemonic = 0;
        VexMenuCallback_pf callback = nullptr;
    };
    struct MacroCallback {
        std::string addOnName;
        VexMacroCommandCallback_pf callback = nullptr;
    };
    // What a macro command callback answered; error is the text it returned (host string freed).
    struct CommandResult {
        bool ok = false;
        std::string error;
    };

    AddOnRegistry(HostErrors& errors, Bookkeeping& bookkeeping)
        : errors_(errors), bookkeeping_(bookkeeping) {}
    AddOnRegistry(const AddOnRegistry&) = delete;
    AddOnRegistry& operator=(const AddOnRegistry&) = delete;

    // ---- SDK side ----
    // nullptr (and a host error) when the name is missing.
    VexAddOn_pa registerAddOn(int32_t sdkVersion, const char* name, const char* versionText,
                              const char* author);
    // nullptr when the handle was not handed out by registerAddOn since the last reset.
    const AddOn* find(VexAddOn_pa handle) const;
    bool addMenuOption(const char* menuPath, const char* label, int32_t mnemonic,
                       VexMenuCallback_pf callback);
    bool addMacroCallback(const char* addOnName, VexMacroCommandCallback_pf callback);

    // ---- Control side ----
    std::size_t addOnCount() const { return addOns_.size(); }
    // In registration order; position < addOnCount().
    const AddOn& addOn(std::size_t position) const;
    // The registered add-on of that name, or nullptr.
    const AddOn* findByName(const std::string& name) const;
    const std::vector<MenuOption>& menuOptions() const { return menuOptions_; }
    // Runs the callback of the item with this menu path and label, as a user choosing it. The label
    // matches as registered or with its '&' mnemonic markers left out ("Key Frame Animation...").
    // False when no such item exists.
    bool chooseMenuOption(const std::string& menuPath, const std::string& label);
    bool hasMacroCallback(const std::string& addOnName) const;
    // Hands the command string to the add-on's macro command callback and frees the error string it
    // returns. An add-on without a callback gives ok false and an error naming it.
    CommandResult runMacroCommand(const std::string& addOnName, const std::string& commandString);

    // The registered name for call logs and error texts: `"Name"`, NULL or <unknown add-on>.
    std::string describe(VexAddOn_pa handle) const;

    void reset();

private:
    HostErrors& errors_;
    Bookkeeping& bookkeeping_;
    std::vector<std::unique_ptr<AddOn>> addOns_;  // a handle is the address of its record
    std::vector<MenuOption> menuOptions_;
    std::vector<MacroCallback> macroCallbacks_;
};

}  // namespace vexhost

#endif
