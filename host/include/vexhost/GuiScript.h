// The macro command $!UI: drives the dialogs as the user does, through GuiUser, and dumps a
// dialog's state (GuiDump) to an output stream. The syntax is in docs/ui-scripting.md.
//
// A quoted text ("...", with the escapes \" \\ \n \r \t \xHH, the ones the dump writes) is always
// a text; an unquoted word is an id (#12), a kind and number (list:1), a line or entry number, a
// keyword (ON, OFF, UP, DOWN) or else a text.
//
// What the user does is not recorded by the macro recorder: the add-on records the commands that
// its callbacks run, and recording both would replay them twice.
#ifndef VEXHOST_GUISCRIPT_H
#define VEXHOST_GUISCRIPT_H

#include <iosfwd>
#include <string>
#include <vector>

#include "vexhost/GuiControl.h"
#include "vexhost/GuiDialog.h"
#include "vexhost/GuiUser.h"

namespace vexhost {

class GuiModel;
class MacroFileRunner;

class GuiScript {
public:
    // Adds $!UI to the macro player: the user acts on the dialogs, dumps of the model go to `out`
    // (all three must outlive the player).
    static void install(MacroFileRunner& runner, GuiUser& user, const GuiModel& model,
                        std::ostream& out);

    GuiScript(GuiUser& user, const GuiModel& model, std::ostream& out);
    GuiScript(const GuiScript&) = delete;
    GuiScript& operator=(const GuiScript&) = delete;

    // Runs the words after "$!UI"; throws MacroError naming what was wrong (what the user cannot
    // do comes from GuiUser, after the command's name).
    void run(const std::string& arguments);

    // One word of the line.
    struct Word {
        std::string text;
        bool quoted = false;
    };

private:
    const GuiDialog& dialog(const Word& word) const;
    const GuiControl& control(const GuiDialog& dialog, const Word& word,
                              const std::vector<GuiControl::Kind>& kinds) const;

    void menu(const std::vector<Word>& words);
    void press(const std::vector<Word>& words);
    void select(const std::vector<Word>& words);
    void type(const std::vector<Word>& words);
    void spin(const std::vector<Word>& words);
    void option(const std::vector<Word>& words);
    void toggle(const std::vector<Word>& words);
    void radio(const std::vector<Word>& words);
    void dialogMenu(const std::vector<Word>& words);
    void dialogButton(const char* name, const std::vector<Word>& words,
                      GuiUser::DialogButton button);
    void dump(const std::vector<Word>& words);

    GuiUser& user_;
    const GuiModel& model_;
    std::ostream& out_;
};

}  // namespace vexhost

#endif
