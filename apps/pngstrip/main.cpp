// pngstrip: puts PNG pictures side by side into one PNG, a strip of frames (the README's strip of
// the demo is made with it from vexplot's $!SNAPSHOT stills).
//   pngstrip [--gap N] OUTPUT.png INPUT.png ...
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "FilmStrip.h"
#include "vexhost/PngReader.h"
#include "vexhost/PngWriter.h"

namespace {

const char* const Usage =
    "Usage: pngstrip [--gap N] OUTPUT.png INPUT.png ...\n"
    "\n"
    "Puts the input pictures side by side, left to right, into one PNG picture, with a black gap\n"
    "of N pixels between neighbours (default 4). The pictures must be equally high.\n";

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    int gap = pngstrip::FilmStrip::DefaultGap;
    if (!arguments.empty() && (arguments[0] == "--help" || arguments[0] == "-h")) {
        std::cout << Usage;
        return 0;
    }
    if (arguments.size() >= 2 && arguments[0] == "--gap") {
        const std::string& value = arguments[1];
        if (value.empty() || value.size() > 4 ||
            value.find_first_not_of("0123456789") != std::string::npos) {
            std::cerr << "pngstrip: --gap needs a whole number of pixels from 0 to 9999; found '"
                      << value << "'\n";
            return 2;
        }
        gap = std::atoi(value.c_str());
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.size() < 2) {
        std::cerr << "pngstrip: needs the output file and at least one picture\n" << Usage;
        return 2;
    }
    try {
        std::vector<vexhost::Image> pictures;
        for (std::size_t i = 1; i < arguments.size(); ++i)
            pictures.push_back(vexhost::readPng(arguments[i]));
        vexhost::writePng(arguments[0], pngstrip::FilmStrip::join(pictures, gap));
    } catch (const std::exception& error) {
        std::cerr << "pngstrip: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
