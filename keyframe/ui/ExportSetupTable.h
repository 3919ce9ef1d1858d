#ifndef VEXUTILTOOLS_EXPORTSETUPTABLE_H
#define VEXUTILTOOLS_EXPORTSETUPTABLE_H

#include <initializer_list>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/NameTable.h"
#include "ui/ListModelPreMapped.h"

namespace vexplot {
namespace vexutiltools {

// Everything the add-on says about the values of an enumeration of the host's export setup (the
// export format, region and Flash picture type): per value, its own name, the keyword that a
// recorded "$!EXPORTSETUP" line gives it, the entry of the export options' option menu and, for
// formats, the movie file's extension. The host keeps tables of its own for these; the add-on,
// which sees the host through the SDK only, keeps this one.
//
// Each such enumeration has exactly one table, built on first use by instance(): the
// enumeration's source defines the specialisation and its header declares it, as for NameTable.
// Entries are in menu order. A value that is not in the table raises std::out_of_range with
// NameTable's text, "Enumeration out of range.".
template <typename T>
class ExportSetupTable {
public:
    struct Entry {
        Entry(T value, const char* name, const char* keyword, const char* menuText,
              const char* fileExtension = "")
            : value(value),
              name(name),
              keyword(keyword),
              menuText(menuText),
              fileExtension(fileExtension) {}

        T value;
        const char* name;           // the enumerator's name, as the printer writes it
        const char* keyword;        // "$!EXPORTSETUP <attribute> = <keyword>"
        const char* menuText;       // the option menu's entry
        std::string fileExtension;  // formats only: without the dot ("mp4"); empty otherwise
    };

    // attribute: the export setup attribute that takes the values ("ExportFormat").
    ExportSetupTable(const char* attribute, std::initializer_list<Entry> entries)
        : attribute_(attribute), entries_(entries) {}

    ExportSetupTable(const ExportSetupTable&) = delete;
    ExportSetupTable& operator=(const ExportSetupTable&) = delete;

    // The one table of the enumeration T.
    static const ExportSetupTable& instance();

    const char* getAttribute() const { return attribute_; }

    const Entry& getEntry(T value) const {
        if (const Entry* entry = findEntry(value))
            return *entry;
        throw std::out_of_range(NameTable<T>::OutOfRange);
    }

    // The entries of the option menu, in table order.
    std::vector<typename ListModelPreMapped<T>::Entry> getMenuEntries() const {
        std::vector<typename ListModelPreMapped<T>::Entry> menu;
        for (const Entry& entry : entries_)
            menu.push_back({entry.menuText, entry.value});
        return menu;
    }

    // Prints the value's name, or <enumeration>(<number>) for a value outside the table.
    std::ostream& print(std::ostream& out, T value, const char* enumeration) const {
        if (const Entry* entry = findEntry(value))
            return out << entry->name;
        return printUnnamed(out, value, enumeration);
    }

private:
    const Entry* findEntry(T value) const {
        for (const Entry& entry : entries_) {
            if (entry.value == value)
                return &entry;
        }
        return nullptr;
    }

    const char* attribute_;
    std::vector<Entry> entries_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
