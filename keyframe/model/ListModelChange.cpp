#include "model/ListModelChange.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

bool operator==(const ListModelChange& a, const ListModelChange& b) {
    return a.kind == b.kind && a.positions == b.positions;
}

bool operator!=(const ListModelChange& a, const ListModelChange& b) {
    return !(a == b);
}

std::ostream& operator<<(std::ostream& out, ListModelChange::Kind_e kind) {
    switch (kind) {
        case ListModelChange::Inserted:
            return out << "Inserted";
        case ListModelChange::Removed:
            return out << "Removed";
        case ListModelChange::Changed:
            return out << "Changed";
        case ListModelChange::Reset:
            return out << "Reset";
    }
    return out << "Kind_e(" << static_cast<uint32_t>(kind) << ")";
}

std::ostream& operator<<(std::ostream& out, const ListModelChange& change) {
    out << change.kind << " [";
    for (std::size_t i = 0; i < change.positions.size(); ++i)
        out << (i == 0 ? "" : ", ") << change.positions[i];
    return out << "]";
}

}  // namespace vexutiltools
}  // namespace vexplot
