/*
 * Vexplot SDK: the string utility library (common_strutil).
 */
#ifndef COMMON_STRUTIL_H
#define COMMON_STRUTIL_H

#include <string>

#include "vxsdkbase.h"

namespace vexplot {

/* The UTF-8 text as a wide string, for opening files whose names leave the system code page.
 * Malformed UTF-8 sequences become U+FFFD. */
VEXSDK_API std::wstring utf8ToWideString(const std::string& utf8);

/* The inverse, for the few places that need the bytes again. */
VEXSDK_API std::string wideStringToUtf8(const std::wstring& wide);

} // namespace vexplot

#endif /* COMMON_STRUTIL_H */
