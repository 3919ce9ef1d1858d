// UTF-8 <-> wide strings (wchar_t holds one UTF-32 code point on this platform).
#include <string>

#include "common_strutil.h"
#include "sdk/SdkCall.h"

static_assert(sizeof(wchar_t) == 4, "wide strings are UTF-32 here");

namespace {

constexpr wchar_t Replacement = 0xFFFD;

bool isContinuation(unsigned char c) {
    return (c & 0xC0) == 0x80;
}

// Decodes strictly (no overlong forms, surrogates or code points above U+10FFFF). Each maximal
// invalid subsequence becomes one U+FFFD, the practice Unicode recommends.
std::wstring decode(const std::string& utf8) {
    std::wstring wide;
    wide.reserve(utf8.size());
    const std::size_t n = utf8.size();
    std::size_t i = 0;
    while (i < n) {
        const unsigned char lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            wide += static_cast<wchar_t>(lead);
            ++i;
            continue;
        }
        std::size_t length;
        unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
        uint32_t code;
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
            code = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            code = lead & 0x0F;
            if (lead == 0xE0)
                low = 0xA0;  // no overlong forms
            if (lead == 0xED)
                high = 0x9F;  // no surrogates
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            code = lead & 0x07;
            if (lead == 0xF0)
                low = 0x90;
            if (lead == 0xF4)
                high = 0x8F;  // nothing above U+10FFFF
        } else {
            wide += Replacement;
            ++i;
            continue;
        }
        std::size_t used = 1;
        bool valid = true;
        for (; used < length; ++used) {
            if (i + used >= n) {
                valid = false;
                break;
            }
            const unsigned char c = static_cast<unsigned char>(utf8[i + used]);
            const bool inRange = used == 1 ? (c >= low && c <= high) : isContinuation(c);
            if (!inRange) {
                valid = false;
                break;
            }
            code = (code << 6) | (c & 0x3F);
        }
        wide += valid ? static_cast<wchar_t>(code) : Replacement;
        i += used;
    }
    return wide;
}

std::string encode(const std::wstring& wide) {
    std::string utf8;
    utf8.reserve(wide.size());
    for (const wchar_t w : wide) {
        uint32_t c = static_cast<uint32_t>(w);
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            c = 0xFFFD;
        if (c < 0x80) {
            utf8 += static_cast<char>(c);
        } else if (c < 0x800) {
            utf8 += static_cast<char>(0xC0 | (c >> 6));
            utf8 += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            utf8 += static_cast<char>(0xE0 | (c >> 12));
            utf8 += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            utf8 += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            utf8 += static_cast<char>(0xF0 | (c >> 18));
            utf8 += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            utf8 += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            utf8 += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return utf8;
}

}  // namespace

namespace vexplot {

std::wstring utf8ToWideString(const std::string& utf8) {
    vexhost::sdk::SdkCall call("vexplot::utf8ToWideString", utf8.c_str());
    return decode(utf8);
}

std::string wideStringToUtf8(const std::wstring& wide) {
    std::string utf8 = encode(wide);
    vexhost::sdk::SdkCall call("vexplot::wideStringToUtf8", utf8.c_str());
    return utf8;
}

}  // namespace vexplot
