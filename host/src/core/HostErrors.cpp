#include "vexhost/HostErrors.h"

namespace vexhost {

void HostErrors::record(const char* function, const std::string& problem) {
    texts_.push_back(std::string(function) + ": " + problem);
}

std::vector<std::string> HostErrors::take() {
    std::vector<std::string> taken;
    taken.swap(texts_);
    return taken;
}

}  // namespace vexhost
