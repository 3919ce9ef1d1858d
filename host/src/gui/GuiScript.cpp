#include "vexhost/GuiScript.h"

#include <limits>
#include <optional>
#include <ostream>

#include "core/Text.h"
#include "script/MacroText.h"
#include "vexhost/GuiDump.h"
#include "vexhost/GuiError.h"
#include "vexhost/GuiModel.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroFileRunner.h"

namespace vexhost {

using script::isBlank;
using script::parseWholeNumber;
using script::quoteForMessage;
using script::upperCase;
using text::equalsIgnoringCase;
using Kind = GuiControl::Kind;
using Word = GuiScript::Word;

namespace {

const char* const Commands =
    "MENU, PRESS, SELECT, TYPE, SPIN, OPTION, TOGGLE, RADIO, DIALOGMENU, OK, APPLY, CANCEL, CLOSE, "
    "HELP or DUMP";

[[noreturn]] void fail(const std::string& message) {
    throw MacroError(message);
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// The words of the line: quoted texts (escapes resolved) and blank-separated words.
std::vector<Word> splitLine(const std::string& line) {
    std::vector<Word> words;
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && isBlank(line[i]))
            ++i;
        if (i == line.size())
            return words;
        Word word;
        if (line[i] != '"') {
            const std::size_t start = i;
            while (i < line.size() && !isBlank(line[i]))
                ++i;
            word.text = line.substr(start, i - start);
            words.push_back(std::move(word));
            continue;
        }
        const std::size_t start = i++;
        word.quoted = true;
        bool closed = false;
        while (i < line.size() && !closed) {
            const char c = line[i++];
            if (c == '"') {
                closed = true;
            } else if (c != '\\') {
                word.text += c;
            } else if (i == line.size()) {
                break;
            } else {
                const char escaped = line[i++];
                switch (escaped) {
                    case '"':
                    case '\\':
                        word.text += escaped;
                        break;
                    case 'n':
                        word.text += '\n';
                        break;
                    case 'r':
                        word.text += '\r';
                        break;
                    case 't':
                        word.text += '\t';
                        break;
                    case 'x': {
                        const int high = i < line.size() ? hexDigit(line[i]) : -1;
                        const int low = i + 1 < line.size() ? hexDigit(line[i + 1]) : -1;
                        if (high < 0 || low < 0)
                            fail("$!UI: \\x must be followed by two hexadecimal digits in " +
                                 quoteForMessage(line.substr(start)) + ".");
                        word.text += static_cast<char>(high * 16 + low);
                        i += 2;
                        break;
                    }
                    default:
                        fail("$!UI: unknown escape \"\\" + std::string(1, escaped) + "\" in " +
                             quoteForMessage(line.substr(start)) +
                             "; use \\\", \\\\, \\n, \\r, \\t or \\xHH.");
                }
            }
        }
        if (!closed)
            fail("$!UI: the text " + quoteForMessage(line.substr(start)) +
                 " has no closing double quote.");
        if (i < line.size() && !isBlank(line[i]))
            fail("$!UI: a blank must follow the text " +
                 quoteForMessage(line.substr(start, i - start)) + ".");
        words.push_back(std::move(word));
    }
}

std::string shown(const Word& word) {
    return quoteForMessage(word.text);
}

// "#12" as 12.
std::optional<int32_t> idOf(const Word& word) {
    if (word.quoted || word.text.size() < 2 || word.text[0] != '#')
        return std::nullopt;
    const std::optional<int64_t> id =
        parseWholeNumber(word.text.substr(1), 1, std::numeric_limits<int32_t>::max());
    return id ? std::optional<int32_t>(static_cast<int32_t>(*id)) : std::nullopt;
}

// An unquoted whole number from 1 up.
std::optional<int32_t> numberOf(const Word& word) {
    if (word.quoted || word.text.empty() || word.text[0] == '+' || word.text[0] == '-')
        return std::nullopt;
    const std::optional<int64_t> value =
        parseWholeNumber(word.text, 0, std::numeric_limits<int32_t>::max());
    return value ? std::optional<int32_t>(static_cast<int32_t>(*value)) : std::nullopt;
}

// ON/OFF or UP/DOWN (unquoted, any case): true for the first, false for the second.
std::optional<bool> keywordOf(const Word& word, const char* yes, const char* no) {
    if (word.quoted)
        return std::nullopt;
    if (equalsIgnoringCase(word.text, yes))
        return true;
    if (equalsIgnoringCase(word.text, no))
        return false;
    return std::nullopt;
}

void expectCount(const std::vector<Word>& words, std::size_t count, const char* usage) {
    if (words.size() != count)
        fail(std::string("$!UI ") + usage);
}

}  // namespace

void GuiScript::install(MacroFileRunner& runner, GuiUser& user, const GuiModel& model,
                        std::ostream& out) {
    runner.addCommand(
        "UI",
        [&user, &model, &out](const std::string& arguments) {
            GuiScript(user, model, out).run(arguments);
        },
        MacroFileRunner::Recording::NotRecorded);
}

GuiScript::GuiScript(GuiUser& user, const GuiModel& model, std::ostream& out)
    : user_(user), model_(model), out_(out) {}

void GuiScript::run(const std::string& arguments) {
    std::vector<Word> words = splitLine(arguments);
    if (words.empty())
        fail(std::string("$!UI needs a command: ") + Commands + ".");
    const Word command = words.front();
    words.erase(words.begin());
    const std::string name = upperCase(command.text);
    struct Entry {
        const char* name;
        void (GuiScript::*run)(const std::vector<Word>&);
    };
    static const Entry Entries[] = {
        {"MENU", &GuiScript::menu},
        {"PRESS", &GuiScript::press},
        {"SELECT", &GuiScript::select},
        {"TYPE", &GuiScript::type},
        {"SPIN", &GuiScript::spin},
        {"OPTION", &GuiScript::option},
        {"TOGGLE", &GuiScript::toggle},
        {"RADIO", &GuiScript::radio},
        {"DIALOGMENU", &GuiScript::dialogMenu},
        {"DUMP", &GuiScript::dump},
    };
    static const std::pair<const char*, GuiUser::DialogButton> Buttons[] = {
        {"OK", GuiUser::DialogButton::Ok},         {"APPLY", GuiUser::DialogButton::Apply},
        {"CANCEL", GuiUser::DialogButton::Cancel}, {"CLOSE", GuiUser::DialogButton::Close},
        {"HELP", GuiUser::DialogButton::Help},
    };
    try {
        if (!command.quoted) {
            for (const Entry& entry : Entries) {
                if (name == entry.name) {
                    (this->*entry.run)(words);
                    return;
                }
            }
            for (const auto& button : Buttons) {
                if (name == button.first) {
                    dialogButton(button.first, words, button.second);
                    return;
                }
            }
        }
    } catch (const GuiError& error) {
        // What the user cannot do, after the command that tried it.
        fail("$!UI " + name + ": " + error.what());
    }
    fail("$!UI: unknown command " + shown(command) + "; use " + Commands + ".");
}

const GuiDialog& GuiScript::dialog(const Word& word) const {
    if (const std::optional<int32_t> id = idOf(word))
        return user_.findDialogById(*id);
    return user_.findDialog(word.text);
}

const GuiControl& GuiScript::control(const GuiDialog& dialog, const Word& word,
                                     const std::vector<Kind>& kinds) const {
    if (const std::optional<int32_t> id = idOf(word))
        return user_.findControlById(dialog, *id);
    if (!word.quoted) {
        const std::size_t colon = word.text.find(':');
        if (colon != std::string::npos) {
            const std::optional<Kind> kind = GuiControl::kindOfWord(word.text.substr(0, colon));
            const std::optional<int64_t> ordinal = parseWholeNumber(
                word.text.substr(colon + 1), 1, std::numeric_limits<int32_t>::max());
            if (kind && ordinal)
                return user_.findControlOfKind(dialog, *kind, static_cast<int32_t>(*ordinal));
        }
    }
    return user_.findControl(dialog, word.text, kinds);
}

void GuiScript::menu(const std::vector<Word>& words) {
    expectCount(words, 2,
                "MENU needs a host menu and an item of it: $!UI MENU \"<menu>\" \"<item>\".");
    user_.chooseHostMenuItem(words[0].text, words[1].text);
}

void GuiScript::press(const std::vector<Word>& words) {
    expectCount(words, 2,
                "PRESS needs a dialog and a button: $!UI PRESS \"<dialog>\" \"<button>\".");
    const GuiDialog& owner = dialog(words[0]);
    user_.press(control(owner, words[1], {Kind::Button}).id);
}

void GuiScript::select(const std::vector<Word>& words) {
    if (words.size() < 2)
        fail(
            "$!UI SELECT needs a dialog, a list and the lines to select (none deselects every "
            "line): $!UI SELECT \"<dialog>\" \"<list>\" [<line> ...].");
    std::vector<int32_t> lines;
    for (std::size_t i = 2; i < words.size(); ++i) {
        const std::optional<int32_t> line = numberOf(words[i]);
        if (!line || *line < 1)
            fail("$!UI SELECT: lines are whole numbers from 1 up; found " + shown(words[i]) + ".");
        lines.push_back(*line);
    }
    const GuiDialog& owner = dialog(words[0]);
    user_.selectLines(control(owner, words[1], {Kind::List}).id, std::move(lines));
}

void GuiScript::type(const std::vector<Word>& words) {
    expectCount(words, 3,
                "TYPE needs a dialog, a text field and the text: $!UI TYPE \"<dialog>\" "
                "\"<field>\" \"<text>\".");
    const GuiDialog& owner = dialog(words[0]);
    user_.enterText(control(owner, words[1], {Kind::TextField, Kind::SpinTextField}).id,
                    words[2].text);
}

void GuiScript::spin(const std::vector<Word>& words) {
    static const char* const Usage =
        "SPIN needs a dialog, a spin text field and UP or DOWN: $!UI SPIN \"<dialog>\" "
        "\"<field>\" UP|DOWN.";
    expectCount(words, 3, Usage);
    const std::optional<bool> up = keywordOf(words[2], "UP", "DOWN");
    if (!up)
        fail(std::string("$!UI ") + Usage);
    const GuiDialog& owner = dialog(words[0]);
    user_.spin(control(owner, words[1], {Kind::SpinTextField}).id, *up);
}

void GuiScript::option(const std::vector<Word>& words) {
    expectCount(words, 3,
                "OPTION needs a dialog, an option menu and the entry (its text, or its number "
                "from 1): $!UI OPTION \"<dialog>\" \"<option menu>\" \"<entry>\".");
    const GuiDialog& owner = dialog(words[0]);
    const GuiControl& menu = control(owner, words[1], {Kind::OptionMenu});
    const std::optional<int32_t> number = numberOf(words[2]);
    user_.chooseOption(menu.id, number ? *number : user_.findOptionEntry(menu, words[2].text));
}

void GuiScript::toggle(const std::vector<Word>& words) {
    static const char* const Usage =
        "TOGGLE needs a dialog, a toggle and ON or OFF: $!UI TOGGLE \"<dialog>\" \"<toggle>\" "
        "ON|OFF.";
    expectCount(words, 3, Usage);
    const std::optional<bool> on = keywordOf(words[2], "ON", "OFF");
    if (!on)
        fail(std::string("$!UI ") + Usage);
    const GuiDialog& owner = dialog(words[0]);
    user_.setToggle(control(owner, words[1], {Kind::Toggle}).id, *on);
}

void GuiScript::radio(const std::vector<Word>& words) {
    if (words.size() == 2) {
        const GuiDialog& owner = dialog(words[0]);
        const std::pair<const GuiControl*, int32_t> found =
            user_.findRadioButton(owner, words[1].text);
        user_.chooseRadioButton(found.first->id, found.second);
        return;
    }
    expectCount(words, 3,
                "RADIO needs a dialog and a radio button, with its radio box before it if "
                "needed: $!UI RADIO \"<dialog>\" [\"<radio box>\"] \"<button>\".");
    const GuiDialog& owner = dialog(words[0]);
    const GuiControl& box = control(owner, words[1], {Kind::RadioBox});
    const std::optional<int32_t> number = numberOf(words[2]);
    user_.chooseRadioButton(box.id, number ? *number : user_.findRadioButton(box, words[2].text));
}

void GuiScript::dialogMenu(const std::vector<Word>& words) {
    std::vector<Word> path = words;
    std::optional<bool> state;
    if (path.size() >= 3) {
        state = keywordOf(path.back(), "ON", "OFF");
        if (state)
            path.pop_back();
    }
    if (path.size() < 3)
        fail(
            "$!UI DIALOGMENU needs a dialog, a menu and an entry of it (submenus in between, ON or "
            "OFF after a toggle): $!UI DIALOGMENU \"<dialog>\" \"<menu>\" \"<entry>\" [ON|OFF].");
    const GuiDialog& owner = dialog(path[0]);
    std::vector<std::string> labels;
    for (std::size_t i = 1; i < path.size(); ++i)
        labels.push_back(path[i].text);
    user_.chooseMenuEntry(user_.findMenuEntry(owner, labels).id, state);
}

void GuiScript::dialogButton(const char* name, const std::vector<Word>& words,
                             GuiUser::DialogButton button) {
    if (words.size() != 1)
        fail(std::string("$!UI ") + name + " needs a dialog: $!UI " + name + " \"<dialog>\".");
    user_.pressDialogButton(dialog(words[0]).id, button);
}

void GuiScript::dump(const std::vector<Word>& words) {
    expectCount(words, 1, "DUMP needs a dialog: $!UI DUMP \"<dialog>\".");
    out_ << GuiDump::dialog(model_, dialog(words[0]).id) << std::flush;
}

}  // namespace vexhost
