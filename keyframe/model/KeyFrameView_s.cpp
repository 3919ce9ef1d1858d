#include "model/KeyFrameView_s.h"

#include <ios>
#include <limits>
#include <ostream>

namespace vexplot {
namespace vexutiltools {

bool operator==(const KeyFrameView_s& a, const KeyFrameView_s& b) {
    return a.X == b.X && a.Y == b.Y && a.Z == b.Z && a.Psi == b.Psi && a.Theta == b.Theta &&
           a.Alpha == b.Alpha && a.Width == b.Width;
}

bool operator!=(const KeyFrameView_s& a, const KeyFrameView_s& b) {
    return !(a == b);
}

std::ostream& operator<<(std::ostream& out, const KeyFrameView_s& view) {
    const std::streamsize precision = out.precision(std::numeric_limits<double>::max_digits10);
    out << "{X " << view.X << ", Y " << view.Y << ", Z " << view.Z << ", Psi " << view.Psi
        << ", Theta " << view.Theta << ", Alpha " << view.Alpha << ", Width " << view.Width << "}";
    out.precision(precision);
    return out;
}

}  // namespace vexutiltools
}  // namespace vexplot
