#include "HillData.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <vtkCellArray.h>
#include <vtkCompositeDataSet.h>
#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkFloatArray.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkStructuredGrid.h>
#include <vtkXMLMultiBlockDataWriter.h>

namespace vexplot {
namespace app {
namespace {

constexpr double kLength = 10, kWidth = 6, kTop = 3;
constexpr int kGroundX = 96, kGroundY = 64;
constexpr int kAirX = 40, kAirY = 24, kAirZ = 10;

double bump(double x, double y, double cx, double cy, double height, double spread) {
    const double dx = x - cx, dy = y - cy;
    return height * std::exp(-(dx * dx + dy * dy) / (2 * spread * spread));
}

// The wind of hour `step`: its speed and direction (radians from the x axis).
void wind(int step, double& speed, double& direction) {
    speed = 0.25 + 0.06 * step;
    direction = 0.08 * step - 0.1;
}

double slope(double x, double y, int axis) {
    const double h = 1e-3;
    return axis == 0 ? (HillData::height(x + h, y) - HillData::height(x - h, y)) / (2 * h)
                     : (HillData::height(x, y + h) - HillData::height(x, y - h)) / (2 * h);
}

// Ground temperature: the sun warms the slopes facing it, the warm spot moving east to west over
// the afternoon, and the air is cooler by about 6.5 degrees per km up.
double groundTemperature(double x, double y, int step) {
    const double sunAzimuth = 3.6 - 0.45 * step;  // radians; the sun's direction over the land
    const double facing =
        -(std::cos(sunAzimuth) * slope(x, y, 0) + std::sin(sunAzimuth) * slope(x, y, 1));
    const double warmth = 6 * std::tanh(1.5 * facing);
    const double spot = bump(x, y, 7 - 0.9 * step, 3.2, 4, 1.6);
    return 18 + 0.4 * step + warmth + spot - 6.5 * HillData::height(x, y);
}

vtkSmartPointer<vtkFloatArray> floatArray(const char* name, int components) {
    auto array = vtkSmartPointer<vtkFloatArray>::New();
    array->SetName(name);
    array->SetNumberOfComponents(components);
    return array;
}

vtkSmartPointer<vtkPolyData> ground(int step) {
    vtkNew<vtkPoints> points;
    auto temperature = floatArray("temperature", 1);
    auto elevation = floatArray("elevation", 1);
    for (int j = 0; j <= kGroundY; ++j) {
        for (int i = 0; i <= kGroundX; ++i) {
            const double x = kLength * i / kGroundX, y = kWidth * j / kGroundY;
            const double z = HillData::height(x, y);
            points->InsertNextPoint(x, y, z);
            temperature->InsertNextValue(static_cast<float>(groundTemperature(x, y, step)));
            elevation->InsertNextValue(static_cast<float>(z));
        }
    }
    vtkNew<vtkCellArray> quads;
    for (int j = 0; j < kGroundY; ++j) {
        for (int i = 0; i < kGroundX; ++i) {
            const vtkIdType a = j * (kGroundX + 1) + i;
            const vtkIdType quad[4] = {a, a + 1, a + kGroundX + 2, a + kGroundX + 1};
            quads->InsertNextCell(4, quad);
        }
    }
    auto out = vtkSmartPointer<vtkPolyData>::New();
    out->SetPoints(points);
    out->SetPolys(quads);
    out->GetPointData()->AddArray(temperature);
    out->GetPointData()->AddArray(elevation);
    return out;
}

vtkSmartPointer<vtkStructuredGrid> air(int step) {
    double speed = 0, direction = 0;
    wind(step, speed, direction);
    vtkNew<vtkPoints> points;
    auto velocity = floatArray("velocity", 3);
    auto temperature = floatArray("temperature", 1);
    for (int k = 0; k <= kAirZ; ++k) {
        for (int j = 0; j <= kAirY; ++j) {
            for (int i = 0; i <= kAirX; ++i) {
                const double x = kLength * i / kAirX, y = kWidth * j / kAirY;
                const double ground = HillData::height(x, y);
                // Terrain-following levels, closer together near the ground.
                const double s = static_cast<double>(k) / kAirZ;
                const double z = ground + (kTop - ground) * s * s;
                const double above = std::max(z - ground, 0.0);
                // A logarithmic-like profile: slow near the ground, full speed aloft.
                const double profile = std::tanh(3 * above + 0.15);
                const double u = speed * std::cos(direction) * profile;
                const double v = speed * std::sin(direction) * profile;
                // Lifted over the hills, less so higher up: the flow follows the terrain.
                const double lift = (kTop - z) / (kTop - ground + 1e-9);
                const double w = (u * slope(x, y, 0) + v * slope(x, y, 1)) * lift;
                points->InsertNextPoint(x, y, z);
                const float vw[3] = {static_cast<float>(u), static_cast<float>(v),
                                     static_cast<float>(w)};
                velocity->InsertNextTuple(vw);
                temperature->InsertNextValue(
                    static_cast<float>(groundTemperature(x, y, step) - 6.5 * above));
            }
        }
    }
    auto out = vtkSmartPointer<vtkStructuredGrid>::New();
    out->SetDimensions(kAirX + 1, kAirY + 1, kAirZ + 1);
    out->SetPoints(points);
    out->GetPointData()->AddArray(velocity);
    out->GetPointData()->AddArray(temperature);
    return out;
}

}  // namespace

double HillData::height(double x, double y) {
    return bump(x, y, 4.0, 3.2, 1.1, 1.2) + bump(x, y, 7.2, 1.4, 0.6, 0.7) +
           bump(x, y, 6.8, 4.8, 0.45, 0.9) +
           0.04 * std::sin(1.7 * x + 0.4 * y) * std::cos(1.3 * y - 0.2 * x);
}

void HillData::write(const std::string& folder) {
    std::filesystem::create_directories(folder);
    std::ofstream pvd(folder + "/hill.pvd");
    pvd << "<?xml version=\"1.0\"?>\n"
           "<VTKFile type=\"Collection\" version=\"0.1\" byte_order=\"LittleEndian\">\n"
           "  <Collection>\n";
    for (int step = 0; step < StepCount; ++step) {
        vtkNew<vtkMultiBlockDataSet> blocks;
        blocks->SetNumberOfBlocks(2);
        blocks->SetBlock(0, ground(step));
        blocks->GetMetaData(0u)->Set(vtkCompositeDataSet::NAME(), "ground");
        blocks->SetBlock(1, air(step));
        blocks->GetMetaData(1u)->Set(vtkCompositeDataSet::NAME(), "air");
        const std::string name = "hill_" + std::to_string(step) + ".vtm";
        vtkNew<vtkXMLMultiBlockDataWriter> writer;
        writer->SetInputData(blocks);
        writer->SetFileName((folder + "/" + name).c_str());
        writer->SetDataModeToAppended();
        writer->EncodeAppendedDataOff();
        writer->SetCompressorTypeToZLib();
        if (writer->Write() != 1)
            throw std::runtime_error("Cannot write " + folder + "/" + name);
        pvd << "    <DataSet timestep=\"" << FirstTime + step << "\" part=\"0\" file=\"" << name
            << "\"/>\n";
    }
    pvd << "  </Collection>\n</VTKFile>\n";
    if (!pvd)
        throw std::runtime_error("Cannot write " + folder + "/hill.pvd");
}

}  // namespace app
}  // namespace vexplot
