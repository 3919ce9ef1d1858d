#ifndef VEXUTILTOOLS_MACROCOMMANDMANAGER_H
#define VEXUTILTOOLS_MACROCOMMANDMANAGER_H

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "addon/AddOn.h"
#include "addon/LockScope.h"
#include "addon/MacroCallback.h"
#include "model/NameTable.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// Turns an add-on macro command and its parameters into the command string that the host records
// and replays, and back; records commands while the host's macro recorder runs; and runs the
// callback through which the host replays them.
//
// Command string syntax (written exactly so and read back):
//   <command name>[<separator><parameter name>=<value>]...
// A value that contains the separator is enclosed in double quotation marks; every other value is
// written bare. Nothing is escaped: a value holding a quotation mark is written as it stands.
// Names are those of NameTable<CommandT> and NameTable<ParameterT>, read back in any case.
//
// CommandT and ParameterT are enumerations with name tables; ErrorT is the exception that carries
// a user-facing text (constructible from a std::string). The callback creates the executer of a
// command with createCommandExecuter(CommandT), found by argument-dependent lookup, which returns
// an owning pointer (empty when no executer exists) to an object with execute(Parameters).
//
// One manager exists per process, created on first use (instance()). All calls come on the host's
// user-interface thread.
template <typename CommandT, typename ParameterT, typename ErrorT>
class MacroCommandManager {
public:
    using Parameter = std::pair<ParameterT, std::string>;
    // In the order of the command string; a parameter may occur more than once.
    using Parameters = std::vector<Parameter>;
    using ParsedCommand = std::pair<CommandT, Parameters>;

    static MacroCommandManager& instance() {
        static MacroCommandManager manager;
        return manager;
    }

    virtual ~MacroCommandManager() = default;

    MacroCommandManager(const MacroCommandManager&) = delete;
    MacroCommandManager& operator=(const MacroCommandManager&) = delete;

    const std::string& getSeparator() const { return separator_; }

    // The command string. A command or parameter without a name raises std::out_of_range
    // "Enumeration out of range.".
    std::string buildCommandString(CommandT command, const Parameters& parameters) const {
        std::string text = NameTable<CommandT>::instance().getName(command);
        for (const Parameter& parameter : parameters) {
            text += separator_;
            text += NameTable<ParameterT>::instance().getName(parameter.first);
            text += '=';
            // find of an empty separator answers 0: with no separator every value is quoted.
            if (parameter.second.find(separator_) != std::string::npos)
                text += '"' + parameter.second + '"';
            else
                text += parameter.second;
        }
        return text;
    }

    // The command and its parameters, each value without the quotation marks at its start and end.
    // Throws ErrorT:
    //   "Invalid macro command string."                 nothing but separators
    //   "Invalid macro command string format."          a parameter with no "=" anywhere after it
    //   "Invalid macro command string format. Unmatched quotation mark."
    //   "Invalid macro parameter string: <token>"       a token without "=" before a later "="
    //   "Unknown macro command: <first word>"
    //   "Unknown macro parameter: <name>"
    ParsedCommand parseCommandString(const std::string& commandString) const {
        const std::vector<std::string> tokens = splitCommandString(commandString);
        if (tokens.empty())
            throw ErrorT("Invalid macro command string.");

        ParsedCommand parsed;
        try {
            parsed.first = NameTable<CommandT>::instance().getValue(tokens.front());
        } catch (const std::out_of_range&) {
            throw ErrorT("Unknown macro command: " + tokens.front());
        }

        for (std::size_t i = 1; i < tokens.size(); ++i) {
            const std::string& token = tokens[i];
            const std::size_t equals = token.find('=');
            if (equals == std::string::npos)
                throw ErrorT("Invalid macro parameter string: " + token);
            const std::string name = token.substr(0, equals);
            ParameterT parameter{};
            try {
                parameter = NameTable<ParameterT>::instance().getValue(name);
            } catch (const std::out_of_range&) {
                throw ErrorT("Unknown macro parameter: " + name);
            }
            parsed.second.emplace_back(parameter, stripQuotationMarks(token.substr(equals + 1)));
        }
        return parsed;
    }

    // Records the command string with the host under the add-on's name, only while the host's
    // macro recorder runs; otherwise does nothing (and builds nothing). Takes the host lock.
    void recordCommand(CommandT command, const Parameters& parameters) const {
        LockScope lock;
        if (VexUtilMacroIsRecordingActive())
            VexUtilMacroRecordExtCommand(AddOn::Name,
                                         buildCommandString(command, parameters).c_str());
    }

    // The host's macro command callback: parses the command string, creates the command's
    // executer, executes it once and destroys it; true when all of that succeeded. Every failure
    // is caught here and never reaches the host: the answer is false, and *errMsg receives a host
    // string "Key Frame Animation error:\n" + the message (storeMacroError), unless the host
    // refuses the allocation.
    static bool macroCommandCallback(const char* commandString, char** errMsg) {
        try {
            const ParsedCommand parsed =
                instance().parseCommandString(commandString != nullptr ? commandString : "");
            auto executer = createCommandExecuter(parsed.first);
            if (!executer)
                throw ErrorT("The macro command " +
                             NameTable<CommandT>::instance().getName(parsed.first) +
                             " is not available.");
            executer->execute(parsed.second);
            return true;
        } catch (const ErrorT& error) {
            return fail(error.what(), errMsg);
        } catch (const std::exception& error) {
            return fail(error.what(), errMsg);
        } catch (...) {
            // Whatever else a command lets through still reaches the user as a message.
            return fail("The macro command failed for an unknown reason.", errMsg);
        }
    }

private:
    MacroCommandManager() = default;

    static bool fail(const std::string& message, char** errMsg) {
        // The host is told false whatever happens here; a failure to store the text loses only
        // the text.
        try {
            storeMacroError(message, errMsg);
        } catch (...) {
        }
        return false;
    }

    // Every quotation mark at the start and at the end goes, not only one pair: "\"\"x\"" is x.
    static std::string stripQuotationMarks(const std::string& value) {
        const std::size_t first = value.find_first_not_of('"');
        if (first == std::string::npos)
            return std::string();
        const std::size_t last = value.find_last_not_of('"');
        return value.substr(first, last - first + 1);
    }

    // The tokens of a command string; the separator's characters are the delimiters. The first
    // token is the command word as it stands. Each later token starts at a non-delimiter and must
    // have an "=" somewhere after its start; when the character after that "=" is a quotation
    // mark the token runs past the matching closing mark (blanks inside are kept) to the next
    // delimiter, otherwise to the next delimiter.
    std::vector<std::string> splitCommandString(const std::string& text) const {
        std::vector<std::string> tokens;
        std::size_t start = text.find_first_not_of(separator_);
        if (start == std::string::npos)
            return tokens;
        std::size_t end = text.find_first_of(separator_, start);
        tokens.push_back(text.substr(start, end - start));

        while (end != std::string::npos) {
            start = text.find_first_not_of(separator_, end);
            if (start == std::string::npos)
                break;
            const std::size_t equals = text.find('=', start);
            if (equals == std::string::npos)
                throw ErrorT("Invalid macro command string format.");
            if (equals + 1 < text.size() && text[equals + 1] == '"') {
                const std::size_t closing = text.find('"', equals + 2);
                if (closing == std::string::npos)
                    throw ErrorT("Invalid macro command string format. Unmatched quotation mark.");
                end = text.find_first_of(separator_, closing + 1);
            } else {
                end = text.find_first_of(separator_, start);
            }
            tokens.push_back(text.substr(start, end - start));
        }
        return tokens;
    }

    // Both the delimiter characters of splitting and the text written between parts.
    const std::string separator_ = " ";
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
