// While alive, VTK's error and warning output is collected here instead of reaching the terminal:
// its output window is taken over and put back on destruction, and its logger's copy on stderr is
// turned off. Reading a file under one lets the reader word VTK's complaint
// into its own one-line message, and also notice errors after which VTK still hands out data.
// Process-wide while alive: one at a time, from one thread.
#ifndef VEXHOST_DATA_VTKERRORCAPTURE_H
#define VEXHOST_DATA_VTKERRORCAPTURE_H

#include <string>

#include <vtkOutputWindow.h>
#include <vtkSmartPointer.h>

namespace vexhost {

class VtkErrorCapture {
public:
    VtkErrorCapture();
    ~VtkErrorCapture();
    VtkErrorCapture(const VtkErrorCapture&) = delete;
    VtkErrorCapture& operator=(const VtkErrorCapture&) = delete;

    bool hasError() const;
    // The first error's own words, without VTK's "ERROR: In file, line" header, the reporting
    // object's class and address, or any line after the first; empty without an error.
    std::string firstError() const;
    // Forgets what was collected (between the stages of one read).
    void clear();

private:
    class Window;
    vtkSmartPointer<Window> window_;
    vtkSmartPointer<vtkOutputWindow> previous_;
};

}  // namespace vexhost

#endif
