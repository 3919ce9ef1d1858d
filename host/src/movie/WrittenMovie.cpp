#include "movie/WrittenMovie.h"

#include <sstream>

namespace vexhost {

std::string WrittenMovie::summary() const {
    std::ostringstream text;
    text << "Wrote " << frames << (frames == 1 ? " frame" : " frames") << " of " << width << " x "
         << height << " at " << framesPerSecond << " fps as " << description << " to \"" << fileName
         << "\"";
    if (encodedWidth != width || encodedHeight != height) {
        text << " (encoded at " << encodedWidth << " x " << encodedHeight
             << ", the codec takes even sizes only)";
    }
    text << ".";
    return text.str();
}

}  // namespace vexhost
