#ifndef VEXUTILTOOLS_NAMETABLE_H
#define VEXUTILTOOLS_NAMETABLE_H

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

namespace vexplot {
namespace vexutiltools {

// Writes a value that has no name as <enumeration>(<number>) ("Command_e(7)"), the printers'
// answer for a value outside their table.
template <typename T>
std::ostream& printUnnamed(std::ostream& out, T value, const char* enumeration) {
    return out << enumeration << '(' << static_cast<int64_t>(value) << ')';
}

// A fixed two-way table between the values of an enumeration and their names, for every
// enumeration that is written to a file or a macro command string.
//
// Names are looked up without regard to case: the name side is ordered by a comparison that lowers
// every character with std::tolower of the default locale before comparing, so "animate", "ANIMATE"
// and "Animate" are one name. getName answers the name as the table spells it. A value or a name
// that is not in the table raises std::out_of_range "Enumeration out of range.", the text users
// see when a file or a macro names something unknown.
//
// Each enumeration has exactly one table, built once on first use by instance(): the enumeration's
// own source defines the specialisation of instance() and its header declares it, e.g.
//     template <> const NameTable<Command_e>& NameTable<Command_e>::instance();
// The table is immutable once built, so a reference to it stays valid for the life of the library.
// The enumeration's printer (operator<<) prints through the table (print), so each name is spelled
// once, in the table.
template <typename T>
class NameTable {
public:
    // Two entries with the same value, or with names equal but for case, are a programming error:
    // the table could not be read back both ways (std::logic_error naming the name).
    NameTable(std::initializer_list<std::pair<T, const char*>> entries) {
        for (const std::pair<T, const char*>& entry : entries) {
            const std::string name(entry.second);
            if (!names_.emplace(entry.first, name).second ||
                !values_.emplace(name, entry.first).second)
                throw std::logic_error("NameTable::NameTable: duplicate entry \"" + name + "\"");
        }
    }

    NameTable(const NameTable&) = delete;
    NameTable& operator=(const NameTable&) = delete;

    // The one table of the enumeration T.
    static const NameTable& instance();

    const std::string& getName(T value) const {
        const auto found = names_.find(value);
        if (found == names_.end())
            throw std::out_of_range(OutOfRange);
        return found->second;
    }

    T getValue(const std::string& name) const {
        const auto found = values_.find(name);
        if (found == values_.end())
            throw std::out_of_range(OutOfRange);
        return found->second;
    }

    bool hasValue(T value) const { return names_.count(value) != 0; }

    // Prints the value's name, or <enumeration>(<number>) for a value outside the table
    // ("Command_e(7)"): a printer never fails, whatever value a test or a log line holds.
    std::ostream& print(std::ostream& out, T value, const char* enumeration) const {
        if (hasValue(value))
            return out << getName(value);
        return printUnnamed(out, value, enumeration);
    }

    static constexpr const char* OutOfRange = "Enumeration out of range.";

private:
    // Orders names as their lowered characters compare: names that differ only in case are equal.
    struct LoweredLess {
        bool operator()(const std::string& a, const std::string& b) const {
            return std::lexicographical_compare(
                a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
                    // Through unsigned char: std::tolower is undefined for negative values other
                    // than EOF, and bytes of UTF-8 text are negative as plain char.
                    return std::tolower(static_cast<unsigned char>(x)) <
                           std::tolower(static_cast<unsigned char>(y));
                });
        }
    };

    std::map<T, std::string> names_;
    std::map<std::string, T, LoweredLess> values_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
