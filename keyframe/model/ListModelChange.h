#ifndef VEXUTILTOOLS_LISTMODELCHANGE_H
#define VEXUTILTOOLS_LISTMODELCHANGE_H

#include <cstdint>
#include <iosfwd>
#include <vector>

namespace vexplot {
namespace vexutiltools {

// One change of a list model, as its observers receive it: what happened and the zero-based
// positions it concerns, in the model's numbering after the change. A Reset lists no positions:
// everything may have changed.
struct ListModelChange {
    enum Kind_e : uint32_t { Inserted = 0, Removed = 1, Changed = 2, Reset = 3 };

    Kind_e kind = Reset;
    std::vector<uint64_t> positions;
};

bool operator==(const ListModelChange& a, const ListModelChange& b);
bool operator!=(const ListModelChange& a, const ListModelChange& b);

// Prints the name ("Inserted"), or Kind_e(n) for a value outside the list.
std::ostream& operator<<(std::ostream& out, ListModelChange::Kind_e kind);
// Prints the kind and the positions, e.g. Inserted [2, 3].
std::ostream& operator<<(std::ostream& out, const ListModelChange& change);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
