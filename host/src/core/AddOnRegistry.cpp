#include "vexhost/AddOnRegistry.h"

#include <stdexcept>

#include "core/Text.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/HostErrors.h"

namespace vexhost {

namespace {

std::string withoutMnemonicMarkers(const std::string& label) {
    std::string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        // "&&" stands for one literal ampersand.
        if (label[i] == '&' && !(i + 1 < label.size() && label[i + 1] == '&'))
            continue;
        if (label[i] == '&')
            ++i;
        plain += label[i];
    }
    return plain;
}

}  // namespace

VexAddOn_pa AddOnRegistry::registerAddOn(int32_t sdkVersion, const char* name,
                                         const char* versionText, const char* author) {
    if (name == nullptr || *name == '\0') {
        errors_.record("VexUtilAddOnRegister", "the add-on name is missing");
        return nullptr;
    }
    auto addOn = std::make_unique<AddOn>();
    addOn->sdkVersion = sdkVersion;
    addOn->name = name;
    addOn->versionText = versionText != nullptr ? versionText : "";
    addOn->author = author != nullptr ? author : "";
    addOns_.push_back(std::move(addOn));
    return reinterpret_cast<VexAddOn_pa>(addOns_.back().get());
}

const AddOnRegistry::AddOn* AddOnRegistry::find(VexAddOn_pa handle) const {
    // Compared by address only: a stale or foreign handle is never dereferenced.
    for (const auto& addOn : addOns_) {
        if (reinterpret_cast<VexAddOn_pa>(addOn.get()) == handle)
            return addOn.get();
    }
    return nullptr;
}

bool AddOnRegistry::addMenuOption(const char* menuPath, const char* label, int32_t mnemonic,
                                  VexMenuCallback_pf callback) {
    if (menuPath == nullptr || label == nullptr || callback == nullptr) {
        errors_.record("VexUtilMenuAddOption",
                       "the menu path, label and callback must all be given");
        return false;
    }
    menuOptions_.push_back({menuPath, label, mnemonic, callback});
    return true;
}

bool AddOnRegistry::addMacroCallback(const char* addOnName, VexMacroCommandCallback_pf callback) {
    if (addOnName == nullptr || callback == nullptr) {
        errors_.record("VexUtilMacroAddCommandCallback",
                       "the add-on name and the callback must both be given");
        return false;
    }
    if (hasMacroCallback(addOnName)) {
        std::string quoted;
        text::appendQuoted(quoted, addOnName);
        errors_.record("VexUtilMacroAddCommandCallback",
                       "the add-on " + quoted + " already has a macro command callback");
        return false;
    }
    macroCallbacks_.push_back({addOnName, callback});
    return true;
}

const AddOnRegistry::AddOn& AddOnRegistry::addOn(std::size_t position) const {
    if (position >= addOns_.size())
        throw std::out_of_range("AddOnRegistry::addOn(): position " + std::to_string(position) +
                                " out of range");
    return *addOns_[position];
}

const AddOnRegistry::AddOn* AddOnRegistry::findByName(const std::string& name) const {
    for (const auto& addOn : addOns_) {
        if (addOn->name == name)
            return addOn.get();
    }
    return nullptr;
}

bool AddOnRegistry::chooseMenuOption(const std::string& menuPath, const std::string& label) {
    const MenuOption* chosen = nullptr;
    for (const MenuOption& option : menuOptions_) {
        if (option.menuPath == menuPath && option.label == label) {
            chosen = &option;
            break;
        }
    }
    if (chosen == nullptr) {
        for (const MenuOption& option : menuOptions_) {
            if (option.menuPath == menuPath && withoutMnemonicMarkers(option.label) == label) {
                chosen = &option;
                break;
            }
        }
    }
    if (chosen == nullptr)
        return false;
    // Copied first: the callback may register further items and move the vector.
    const VexMenuCallback_pf callback = chosen->callback;
    callback();
    return true;
}

bool AddOnRegistry::hasMacroCallback(const std::string& addOnName) const {
    for (const MacroCallback& entry : macroCallbacks_) {
        if (entry.addOnName == addOnName)
            return true;
    }
    return false;
}

AddOnRegistry::CommandResult AddOnRegistry::runMacroCommand(const std::string& addOnName,
                                                            const std::string& commandString) {
    VexMacroCommandCallback_pf callback = nullptr;
    for (const MacroCallback& entry : macroCallbacks_) {
        if (entry.addOnName == addOnName)
            callback = entry.callback;
    }
    CommandResult result;
    if (callback == nullptr) {
        std::string quoted;
        text::appendQuoted(quoted, addOnName.c_str());
        result.error = "No add-on named " + quoted + " has a macro command callback.";
        return result;
    }
    char* errMsg = nullptr;
    result.ok = callback(commandString.c_str(), &errMsg);
    if (errMsg != nullptr) {
        result.error = errMsg;
        if (!bookkeeping_.freeString(errMsg))
            errors_.record("VexMacroCommandCallback",
                           "the error message returned by the add-on " + addOnName +
                               " is not a host string (VexUtilStringAlloc)");
    }
    return result;
}

std::string AddOnRegistry::describe(VexAddOn_pa handle) const {
    if (handle == nullptr)
        return "NULL";
    const AddOn* addOn = find(handle);
    if (addOn == nullptr)
        return "<unknown add-on>";
    std::string quoted;
    text::appendQuoted(quoted, addOn->name.c_str());
    return quoted;
}

void AddOnRegistry::reset() {
    addOns_.clear();
    menuOptions_.clear();
    macroCallbacks_.clear();
}

}  // namespace vexhost
