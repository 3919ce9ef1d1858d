#include "model/KeyFrame_s.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

bool operator==(const KeyFrame_s& a, const KeyFrame_s& b) {
    return a.view == b.view && a.name == b.name && a.frameCount == b.frameCount &&
           a.solutionTime == b.solutionTime;
}

bool operator!=(const KeyFrame_s& a, const KeyFrame_s& b) {
    return !(a == b);
}

std::ostream& operator<<(std::ostream& out, const KeyFrame_s& keyFrame) {
    return out << "{" << keyFrame.view << ", name \"" << keyFrame.name << "\", frameCount "
               << keyFrame.frameCount << ", solutionTime " << keyFrame.solutionTime << "}";
}

}  // namespace vexutiltools
}  // namespace vexplot
