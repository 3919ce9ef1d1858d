// makehill: writes the example data set "hill" (HillData.h) into the folder given.
#include <exception>
#include <iostream>
#include <string>

#include "HillData.h"

int main(int argc, char** argv) {
    if (argc != 2 || std::string(argv[1]) == "--help") {
        std::cerr
            << "Usage: makehill FOLDER\n"
               "Writes the example data set: FOLDER/hill.pvd, five hourly steps of wind over\n"
               "a hilly piece of land as multiblock VTK files (docs/data.md).\n";
        return argc == 2 ? 0 : 2;
    }
    try {
        vexplot::app::HillData::write(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "makehill: " << error.what() << std::endl;
        return 1;
    }
    return 0;
}
