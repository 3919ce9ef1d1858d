// Every way a data file can fail to show: one line naming the file and what was wrong, as a
// DataFileError, with nothing of VTK's own output on the terminal.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkUnstructuredGrid.h>

#include "TemporaryDirectory.h"
#include "data/SampleData.h"
#include "vexhost/DataFileError.h"
#include "vexhost/DataFileReader.h"

namespace {

using vexhost::DataFileOptions;
using vexhost::DataFileReader;
using vextest::SampleData;

const char* const kKnown = "(known: .vtu .vtp .vts .vtr .vti .vtm .pvd .vtk .stl .ply .obj)";

class DataFileErrorTest : public ::testing::Test {
protected:
    std::string file(const std::string& name) const { return directory_.file(name); }

    // The message of reading `path`, checking that VTK printed nothing meanwhile.
    static std::string messageOf(const std::string& path, const DataFileOptions& options = {}) {
        ::testing::internal::CaptureStderr();
        ::testing::internal::CaptureStdout();
        std::string message = "(read without an error)";
        try {
            DataFileReader::read(path, options);
        } catch (const vexhost::DataFileError& error) {
            message = error.what();
        }
        const std::string out = ::testing::internal::GetCapturedStdout();
        const std::string err = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ("", err);
        EXPECT_EQ("", out);
        EXPECT_EQ(std::string::npos, message.find('\n')) << message;
        return message;
    }

    static DataFileOptions colourBy(const std::string& request) {
        DataFileOptions options;
        options.colourBy = request;
        return options;
    }

    static DataFileOptions traceAlong(const std::string& array) {
        DataFileOptions options;
        options.streamtraceArray = array;
        options.seed.start = {0.1, 0.5, 0.5};
        options.seed.end = {0.1, 0.6, 0.5};
        options.seed.count = 2;
        return options;
    }

private:
    vextest::TemporaryDirectory directory_{"data-errors"};
};

TEST_F(DataFileErrorTest, AMissingFile) {
    const std::string path = file("flow.vtu");
    EXPECT_EQ("Cannot read \"" + path + "\": no such file.", messageOf(path));
}

TEST_F(DataFileErrorTest, AFolder) {
    std::filesystem::create_directories(file("run.vtu"));
    EXPECT_EQ("Cannot read \"" + file("run.vtu") + "\": it is a folder, not a file.",
              messageOf(file("run.vtu")));
}

TEST_F(DataFileErrorTest, AnUnknownExtension) {
    std::ofstream(file("flow.xyz")) << "1 2 3\n";
    EXPECT_EQ("Cannot read \"" + file("flow.xyz") +
                  "\": \".xyz\" is not the extension of a data file read here " + kKnown + ".",
              messageOf(file("flow.xyz")));
}

TEST_F(DataFileErrorTest, NoExtension) {
    std::ofstream(file("flow")) << "1 2 3\n";
    EXPECT_EQ("Cannot read \"" + file("flow") + "\": it has no extension to tell its format " +
                  kKnown + ".",
              messageOf(file("flow")));
}

TEST_F(DataFileErrorTest, AFileVtkCannotParseIsWordedFromVtksOwnError) {
    std::ofstream(file("broken.vtu")) << "this is not XML\n";
    EXPECT_EQ("Cannot read \"" + file("broken.vtu") +
                  "\": VTK says: Error parsing XML in stream at line 1, column 0, byte index 0: "
                  "syntax error",
              messageOf(file("broken.vtu")));
}

TEST_F(DataFileErrorTest, AnXmlFileCutShortIsAnError) {
    SampleData::writeXml(*SampleData::box(2, 2, 2), file("box.vtu"), SampleData::Encoding::Ascii);
    std::string text;
    {
        std::ifstream in(file("box.vtu"));
        text.assign(std::istreambuf_iterator<char>(in), {});
    }
    std::ofstream(file("cut.vtu")) << text.substr(0, text.find("<Cells>"));
    const std::string message = messageOf(file("cut.vtu"));
    EXPECT_EQ(0u, message.find("Cannot read \"" + file("cut.vtu") + "\": VTK says: ")) << message;
}

TEST_F(DataFileErrorTest, APvdNamingAMissingFile) {
    SampleData::writeXml(*SampleData::plane(2), file("step_0.vtp"));
    SampleData::writePvd(file("series.pvd"), {"step_0.vtp", "step_1.vtp"}, {0, 1});
    EXPECT_EQ("Cannot read \"" + file("series.pvd") +
                  "\": it names \"step_1.vtp\", which does not exist.",
              messageOf(file("series.pvd")));
}

TEST_F(DataFileErrorTest, APvdThatIsNotACollection) {
    SampleData::writeXml(*SampleData::plane(2), file("plane.vtp"));
    std::filesystem::copy_file(file("plane.vtp"), file("plane.pvd"));
    EXPECT_EQ(
        "Cannot read \"" + file("plane.pvd") + "\": it is not a VTKFile of type \"Collection\".",
        messageOf(file("plane.pvd")));
    std::ofstream(file("text.pvd")) << "not xml";
    EXPECT_EQ(0u, messageOf(file("text.pvd")).find("Cannot read \"" + file("text.pvd") + "\": "));
}

TEST_F(DataFileErrorTest, APvdEntryWithoutAFileOrWithATimeThatIsNoNumber) {
    const std::string head = "<?xml version=\"1.0\"?>\n<VTKFile type=\"Collection\"><Collection>\n";
    std::ofstream(file("nofile.pvd"))
        << head << "<DataSet timestep=\"0\"/>\n</Collection></VTKFile>\n";
    EXPECT_EQ("Cannot read \"" + file("nofile.pvd") + "\": DataSet 1 names no file.",
              messageOf(file("nofile.pvd")));
    std::ofstream(file("badtime.pvd"))
        << head << "<DataSet timestep=\"soon\" file=\"a.vtu\"/>\n</Collection></VTKFile>\n";
    EXPECT_EQ("Cannot read \"" + file("badtime.pvd") +
                  "\": the timestep \"soon\" of \"a.vtu\" is not a number.",
              messageOf(file("badtime.pvd")));
    std::ofstream(file("badpart.pvd"))
        << head << "<DataSet part=\"-1\" file=\"a.vtu\"/>\n</Collection></VTKFile>\n";
    EXPECT_EQ("Cannot read \"" + file("badpart.pvd") +
                  "\": the part \"-1\" of \"a.vtu\" is not a part number.",
              messageOf(file("badpart.pvd")));
}

TEST_F(DataFileErrorTest, ANumberedSeriesWithTwoStars) {
    EXPECT_EQ("Cannot read \"" + file("run_*_*.vtu") +
                  "\": a numbered series takes one '*', in the file name, where the number "
                  "stands.",
              messageOf(file("run_*_*.vtu")));
}

TEST_F(DataFileErrorTest, AnEmptyPvd) {
    SampleData::writePvd(file("empty.pvd"), {}, {});
    EXPECT_EQ("Cannot read \"" + file("empty.pvd") + "\": its collection names no data set.",
              messageOf(file("empty.pvd")));
}

TEST_F(DataFileErrorTest, ANumberedSeriesThatMatchesNothing) {
    EXPECT_EQ("Cannot read \"" + file("flow_*.vtu") + "\": no file matches it.",
              messageOf(file("flow_*.vtu")));
}

TEST_F(DataFileErrorTest, AnUnknownArrayName) {
    SampleData::writeXml(*SampleData::plane(2), file("plane.vtp"));
    EXPECT_EQ("Cannot colour \"" + file("plane.vtp") +
                  "\" by \"density\": no point or cell array has that name (it has "
                  "temperature, velocity, pressure).",
              messageOf(file("plane.vtp"), colourBy("density")));
}

TEST_F(DataFileErrorTest, AComponentTheArrayDoesNotHave) {
    SampleData::writeXml(*SampleData::plane(2), file("plane.vtp"));
    EXPECT_EQ("Cannot colour \"" + file("plane.vtp") +
                  "\" by \"temperature:Y\": \"temperature\" has 1 component.",
              messageOf(file("plane.vtp"), colourBy("temperature:Y")));
}

TEST_F(DataFileErrorTest, ADataSetWithNoCells) {
    vtkNew<vtkUnstructuredGrid> empty;
    vtkNew<vtkPoints> points;
    points->InsertNextPoint(0, 0, 0);
    empty->SetPoints(points);
    SampleData::writeXml(*empty, file("empty.vtu"));
    EXPECT_EQ("Cannot show \"" + file("empty.vtu") + "\": the data set has no cells.",
              messageOf(file("empty.vtu")));
}

TEST_F(DataFileErrorTest, ADataSetOfLinesOnly) {
    vtkNew<vtkPolyData> lines;
    vtkNew<vtkPoints> points;
    points->InsertNextPoint(0, 0, 0);
    points->InsertNextPoint(1, 0, 0);
    lines->SetPoints(points);
    vtkNew<vtkCellArray> cells;
    const vtkIdType line[2] = {0, 1};
    cells->InsertNextCell(2, line);
    lines->SetLines(cells);
    SampleData::writeXml(*lines, file("lines.vtp"));
    EXPECT_EQ("Cannot show \"" + file("lines.vtp") +
                  "\": it has no surface or volume to draw, only points or lines.",
              messageOf(file("lines.vtp")));
}

TEST_F(DataFileErrorTest, HidingABlockTheFileDoesNotHaveOrEveryBlock) {
    SampleData::writeMultiBlock(file("case.vtm"));
    DataFileOptions typo;
    typo.hiddenBlocks = {"fluids"};
    EXPECT_EQ("Cannot hide \"fluids\" in \"" + file("case.vtm") +
                  "\": it has no block of that name (it has fluid, wall).",
              messageOf(file("case.vtm"), typo));
    DataFileOptions all;
    all.hiddenBlocks = {"fluid", "wall"};
    EXPECT_EQ("Cannot show \"" + file("case.vtm") + "\": every block of it is hidden.",
              messageOf(file("case.vtm"), all));
}

TEST_F(DataFileErrorTest, StreamtracesAlongAMissingOrScalarArrayOrFromOutside) {
    SampleData::writeXml(*SampleData::box(2, 2, 2), file("box.vtu"));
    const std::string path = file("box.vtu");
    EXPECT_EQ("Cannot trace streams in \"" + path +
                  "\" along \"wind\": the data has no point or cell array of that name.",
              messageOf(path, traceAlong("wind")));
    EXPECT_EQ("Cannot trace streams in \"" + path +
                  "\" along \"temperature\": it is not a vector array (it has 1 component).",
              messageOf(path, traceAlong("temperature")));
    DataFileOptions outside = traceAlong("flow");
    outside.seed.start = {5, 5, 5};
    outside.seed.end = {6, 5, 5};
    EXPECT_EQ("Cannot trace streams in \"" + path +
                  "\" along \"flow\": no streamtrace leaves the seed (does it lie inside the "
                  "data?).",
              messageOf(path, outside));
}

TEST_F(DataFileErrorTest, GarbageInEveryFormatIsAnErrorNotACrash) {
    for (const std::string& extension : DataFileReader::extensions()) {
        SCOPED_TRACE(extension);
        const std::string path = file("garbage" + extension);
        std::ofstream(path, std::ios::binary) << std::string("\x01\x02garbage\xff\x00 solid", 16);
        const std::string message = messageOf(path);
        EXPECT_EQ(0u, message.find("Cannot ")) << message;
        EXPECT_NE(std::string::npos, message.find(path)) << message;
    }
}

}  // namespace
