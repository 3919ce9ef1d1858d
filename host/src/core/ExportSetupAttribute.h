// The export setup attributes: the ("ExportSetup", <name>) style values, one row each. Every part
// of the host that deals with the export setup reads this table: the style store (path, type,
// range, default), the exporter (VexUtilExportSetup, and ExportSettings at export start), the
// macro player ($!EXPORTSETUP) and the SDK's call log (which attribute passes a string).
//
// - The name matches without regard to case.
// - The field is where an export finds the value in ExportSettings. Its type is the value's type
//   (int: integer, double, bool, std::string), and a default ExportSettings holds the default.
// - How VexUtilExportSetup passes it follows from the type: a double in doubleValue; an integer,
//   or a bool as 0 or 1, in intValue; a string as a `const char*` in intValue.
// - An enumeration has keywords: the words a macro line writes its values with (the export
//   options dialog records those), each with the name the host's messages give the value. A macro
//   line writes the other attributes as a whole number, a number, true or false, or the file name
//   in double quotes.
//
// The keywords of ExportFormat are the formats that make movies: the export options dialog offers
// those only. Other export formats are valid style values, but an export to them makes no movie.
#ifndef VEXHOST_CORE_EXPORTSETUPATTRIBUTE_H
#define VEXHOST_CORE_EXPORTSETUPATTRIBUTE_H

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/ValueRange.h"
#include "vexhost/ExportSettings.h"
#include "vexhost/StyleStore.h"

namespace vexhost {

struct ExportSetupAttribute {
    struct Keyword {
        const char* word;  // as a macro line writes it, matched without regard to case: "MPEG4"
        int value;
        const char* name;  // as messages name it: "MPEG-4"
    };
    using Field = std::variant<int ExportSettings::*, double ExportSettings::*,
                               bool ExportSettings::*, std::string ExportSettings::*>;

    // The first word of every export setup style path.
    static constexpr const char* PathWord = "ExportSetup";

    const char* name;
    Field field;
    ValueRange range;
    std::vector<Keyword> keywords;  // in the order messages list them; empty: not an enumeration

    StyleStore::ValueType type() const;
    StyleStore::Path path() const { return {PathWord, name}; }
    // The keyword of a value; nullptr when it has none.
    const Keyword* keyword(int value) const;
    // The keyword written as given (any case); nullptr when there is none.
    const Keyword* keyword(std::string_view word) const;
    // The keywords' values with their names, by value: "0 (True Color), 1 (JPEG) and 2 (256
    // Colors)".
    std::string describeValues() const;

    // Every attribute, in the order of docs/host.md.
    static const std::vector<ExportSetupAttribute>& all();
    // The attribute of that name (any case); nullptr when there is none.
    static const ExportSetupAttribute* find(std::string_view name);
    // The attribute read into that field of ExportSettings.
    static const ExportSetupAttribute& of(Field field);
    // Whether an export to that ExportFormat value makes a movie.
    static bool isMovieFormat(int format);
};

}  // namespace vexhost

#endif
