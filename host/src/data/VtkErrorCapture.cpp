#include "data/VtkErrorCapture.h"

#include <vtkLogger.h>
#include <vtkObjectFactory.h>

#include <vector>

namespace vexhost {

class VtkErrorCapture::Window : public vtkOutputWindow {
public:
    static Window* New();
    vtkTypeMacro(Window, vtkOutputWindow);

    void DisplayErrorText(const char* text) override { errors.emplace_back(text ? text : ""); }
    // Warnings and plain text are dropped: reading goes on after them, and what the person needs
    // is in the data or in an error.
    void DisplayWarningText(const char*) override {}
    void DisplayGenericWarningText(const char*) override {}
    void DisplayDebugText(const char*) override {}
    void DisplayText(const char*) override {}

    std::vector<std::string> errors;
};

vtkStandardNewMacro(VtkErrorCapture::Window);

namespace {

// VTK words an error as "ERROR: In <file>, line <n>\n<Class> (<address>): <message>\n\n".
std::string ownWords(const std::string& text) {
    std::string message = text;
    if (message.rfind("ERROR: In ", 0) == 0) {
        const std::size_t newline = message.find('\n');
        message = newline == std::string::npos ? std::string() : message.substr(newline + 1);
    }
    const std::size_t address = message.find("): ");
    const std::size_t lineEnd = message.find('\n');
    if (address != std::string::npos && (lineEnd == std::string::npos || address < lineEnd))
        message = message.substr(address + 3);
    message = message.substr(0, message.find('\n'));
    while (!message.empty() && (message.back() == ' ' || message.back() == '\r'))
        message.pop_back();
    return message;
}

}  // namespace

VtkErrorCapture::VtkErrorCapture()
    : window_(vtkSmartPointer<Window>::New()), previous_(vtkOutputWindow::GetInstance()) {
    vtkOutputWindow::SetInstance(window_);
    // The logger copies every error to stderr itself, apart from the output window. Its copy is
    // turned off for good: VTK 9.1 cannot tell the level it had, and nothing in a host process
    // wants VTK's raw output on the terminal.
    vtkLogger::SetStderrVerbosity(vtkLogger::VERBOSITY_OFF);
}

VtkErrorCapture::~VtkErrorCapture() {
    vtkOutputWindow::SetInstance(previous_);
}

bool VtkErrorCapture::hasError() const {
    return !window_->errors.empty();
}

std::string VtkErrorCapture::firstError() const {
    return window_->errors.empty() ? std::string() : ownWords(window_->errors.front());
}

void VtkErrorCapture::clear() {
    window_->errors.clear();
}

}  // namespace vexhost
