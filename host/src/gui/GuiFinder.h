// The user's finding (GuiUser): dialogs, controls, menu entries, radio buttons, option menu
// entries and the add-ons' host menu items, each by the tiered match (TieredMatch) over what the
// model holds. Nothing, or more than one thing, that fits is a GuiError (GuiWording).
#ifndef VEXHOST_GUI_GUIFINDER_H
#define VEXHOST_GUI_GUIFINDER_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "gui/GuiWording.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/GuiControl.h"
#include "vexhost/GuiDialog.h"

namespace vexhost {

class GuiModel;

class GuiFinder {
public:
    explicit GuiFinder(const GuiModel& model) : model_(model), wording_(model) {}

    // The finders of GuiUser.h, which says what each one matches.
    const GuiDialog& dialog(const std::string& title) const;
    const GuiDialog& dialogById(int32_t id) const;
    const GuiControl& control(const GuiDialog& dialog, const std::string& text,
                              const std::vector<GuiControl::Kind>& kinds) const;
    const GuiControl& controlById(const GuiDialog& dialog, int32_t id) const;
    const GuiControl& controlOfKind(const GuiDialog& dialog, GuiControl::Kind kind,
                                    int32_t ordinal) const;
    const GuiControl& menuEntry(const GuiDialog& dialog,
                                const std::vector<std::string>& path) const;
    int32_t radioButton(const GuiControl& radioBox, const std::string& label) const;
    std::pair<const GuiControl*, int32_t> radioButton(const GuiDialog& dialog,
                                                      const std::string& label) const;
    int32_t optionEntry(const GuiControl& optionMenu, const std::string& text) const;
    // Among the items the add-ons added to the host's menus: the menu path and the label both
    // exactly, else both as plain text.
    const AddOnRegistry::MenuOption& hostMenuItem(
        const std::vector<AddOnRegistry::MenuOption>& options, const std::string& menuPath,
        const std::string& label) const;

private:
    const GuiModel& model_;
    GuiWording wording_;
};

}  // namespace vexhost

#endif
