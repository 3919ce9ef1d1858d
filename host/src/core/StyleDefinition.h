// The style tree: one definition per path, in the order of docs/host.md, with its type, range and
// default. The ("ExportSetup", ...) paths are the export setup attributes (ExportSetupAttribute).
//
// A "ThreeDView" value is not kept by the store: its definition binds it to a field of the active
// frame's View3D, saying how reading and writing the value reads and writes the view.
#ifndef VEXHOST_CORE_STYLEDEFINITION_H
#define VEXHOST_CORE_STYLEDEFINITION_H

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Text.h"
#include "core/ValueRange.h"
#include "vexhost/StyleStore.h"
#include "vexhost/View3D.h"

namespace vexhost {

struct StyleDefinition {
    // A number reads and writes through the first two, a flag through the last two; all four are
    // null for a value the store keeps.
    struct ViewBinding {
        double (*readNumber)(const View3D&) = nullptr;
        void (*writeNumber)(View3D&, double) = nullptr;
        bool (*readFlag)(const View3D&) = nullptr;
        void (*writeFlag)(View3D&, bool) = nullptr;
    };

    static constexpr int MaxDepth = 3;  // the longest path of the tree

    std::array<std::string_view, MaxDepth> words;
    int depth;
    StyleStore::ValueType type;
    ValueRange range;  // of a double or an integer
    double defaultNumber;
    bool defaultBool;
    std::string defaultText;
    ViewBinding view;

    bool isStored() const { return view.readNumber == nullptr && view.readFlag == nullptr; }
    // Whether `path` (pathDepth words) names this value, word for word without regard to case;
    // from the last word, as siblings share their first words. Inline, as are the shapes: the
    // store scans the tree with them on every X-call.
    bool matches(const std::string_view* path, int pathDepth) const {
        if (pathDepth != depth)
            return false;
        for (int w = depth - 1; w >= 0; --w) {
            if (!text::equalsIgnoringCase(words[w], path[w]))
                return false;
        }
        return true;
    }
    // A path's depth and word lengths in one number, a byte each (a longer word counts as 255:
    // the words are compared anyway). Paths of different shapes never match, so comparing shapes
    // first rules out nearly every other path before a letter is compared.
    static uint32_t shapeOf(const std::string_view* path, int pathDepth) {
        uint32_t shape = static_cast<uint32_t>(pathDepth);
        for (int w = 0; w < pathDepth && w < MaxDepth; ++w)
            shape = shape << 8 | static_cast<uint32_t>(std::min<std::size_t>(path[w].size(), 255));
        return shape;
    }
    uint32_t shape() const { return shapeOf(words.data(), depth); }

    static const std::vector<StyleDefinition>& all();
};

}  // namespace vexhost

#endif
