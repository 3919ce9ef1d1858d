// One scalable font opened with FreeType, rendering single characters to grey coverage bitmaps.
// Pictures use DejaVu Sans (Debian's fonts-dejavu-core): a sans face with clear digits, installed
// wherever the host is built.
#ifndef VEXHOST_RENDER_FONTFACE_H
#define VEXHOST_RENDER_FONTFACE_H

#include <cstdint>
#include <string>
#include <vector>

struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace vexhost {

class FontFace {
public:
    static constexpr const char* kDefaultPath = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

    // Throws std::runtime_error naming the path when the font cannot be opened.
    explicit FontFace(const std::string& path = kDefaultPath);
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    // One character at a size, hinted to whole pixels. Offsets are from the pen position on the
    // baseline, y upwards (top: the bitmap's first row above the baseline).
    struct Glyph {
        int width = 0, rows = 0;
        int left = 0, top = 0;
        int advance = 0;                // to the next pen position, whole pixels
        std::vector<uint8_t> coverage;  // width * rows, rows top-down, 0..255
    };
    // Throws std::runtime_error for a size or character FreeType cannot render.
    Glyph render(char character, int pixelSize);
    // The face's ascender and descender at a size (descender <= 0), whole pixels.
    int ascender(int pixelSize);
    int descender(int pixelSize);

private:
    void setSize(int pixelSize);

    FT_LibraryRec_* library_ = nullptr;  // owned
    FT_FaceRec_* face_ = nullptr;        // owned
    int size_ = 0;                       // the pixel size last set
};

}  // namespace vexhost

#endif
