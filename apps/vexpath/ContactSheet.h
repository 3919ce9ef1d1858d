// A contact sheet: pictures of one size in a grid, left to right and top to bottom in the order
// given, with a gap of the background colour between them and round the edge.
#ifndef VEXPLOT_PATH_CONTACTSHEET_H
#define VEXPLOT_PATH_CONTACTSHEET_H

#include <vector>

#include "vexhost/Image.h"

namespace vexplot {
namespace path {

class ContactSheet {
public:
    static constexpr int Gap = 6;
    static constexpr int DefaultColumns = 4;

    // Throws std::invalid_argument naming the fault when there is no picture, a picture is empty or
    // of another size than the first, or columns is below 1. Fewer pictures than columns make one
    // row of that many.
    static vexhost::Image compose(const std::vector<vexhost::Image>& pictures, int columns);
};

}  // namespace path
}  // namespace vexplot

#endif
