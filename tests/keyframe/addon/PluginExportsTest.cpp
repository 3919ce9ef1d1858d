// The plug-in must export its entry point and nothing else a host could bind to by accident.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/CommandOutput.h"

namespace {

struct DynamicSymbol {
    std::string type;
    std::string name;
};

// The dynamic symbols that the library defines, as "nm -D --defined-only" lists them.
std::vector<DynamicSymbol> definedDynamicSymbols(const std::string& library) {
    std::vector<DynamicSymbol> symbols;
    for (const std::string& line :
         vextest::commandOutputLines("nm -D --defined-only " + vextest::shellQuoted(library))) {
        std::istringstream fields(line);
        std::string address;
        DynamicSymbol symbol;
        // "0000000000001234 T InitVexAddOn113"; absolute symbols may come without an address.
        if (!(fields >> address >> symbol.type))
            continue;
        if (!(fields >> symbol.name)) {
            symbol.name = symbol.type;
            symbol.type = address;
        }
        symbols.push_back(symbol);
    }
    return symbols;
}

bool isFunction(const std::string& type) {
    return type == "T" || type == "t" || type == "W" || type == "w" || type == "i";
}

TEST(PluginExportsTest, InitVexAddOn113IsTheOnlyExportedFunction) {
    const std::vector<DynamicSymbol> symbols = definedDynamicSymbols(VEX_ADDON_LIBRARY_PATH);
    ASSERT_FALSE(symbols.empty()) << "nm listed nothing for " << VEX_ADDON_LIBRARY_PATH;
    std::vector<std::string> functions;
    for (const DynamicSymbol& symbol : symbols) {
        if (isFunction(symbol.type))
            functions.push_back(symbol.name);
    }
    EXPECT_EQ(std::vector<std::string>{"InitVexAddOn113"}, functions);
}

}  // namespace
