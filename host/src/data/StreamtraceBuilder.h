// Streamtraces through a data set, computed by VTK's vtkStreamTracer: forward from every seed
// point along a vector point array (a cell array is first averaged to the points), Runge-Kutta
// 4-5 with steps of a fifth of a cell, up to four times the data's diagonal long. Each line of the
// tracer's output becomes one host streamtrace: its points and the travel time from the seed at
// each ("IntegrationTime"). Lines of fewer than two points are left out.
#ifndef VEXHOST_DATA_STREAMTRACEBUILDER_H
#define VEXHOST_DATA_STREAMTRACEBUILDER_H

#include <memory>
#include <string>
#include <vector>

#include "vexhost/DataFileOptions.h"
#include "vexhost/Streamtrace.h"

class vtkDataObject;

namespace vexhost {

class StreamtraceBuilder {
public:
    // Throws DataFileError naming `shownName` ("Cannot trace streams in ...") when the data has
    // no array of that name, the array is not a 3-component vector, or no trace leaves the seed.
    static std::vector<std::shared_ptr<const Streamtrace>> trace(vtkDataObject& data,
                                                                 const std::string& arrayName,
                                                                 const DataFileOptions::Seed& seed,
                                                                 const std::string& shownName);
};

}  // namespace vexhost

#endif
