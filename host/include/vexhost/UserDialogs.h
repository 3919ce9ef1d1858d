// What the host shows the user, and the answers a script or test gives in advance.
//
// Error dialogs and message boxes are recorded and passed to the sink (vexplot prints them). Yes/No
// and OK/Cancel boxes take the next queued answer; one asked with no answer queued is a host error
// naming the question, and is answered No. File dialogs take the next queued file name; a queued
// cancel, or an empty queue, is Cancel. Help requests are recorded.
//
// A responder, when set, stands for a person at the screen: every error dialog and message box is
// shown to it (it returns once the person has dismissed it), and it answers the questions and file
// dialogs that find no queued answer. The studio is one.
#ifndef VEXHOST_USERDIALOGS_H
#define VEXHOST_USERDIALOGS_H

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace vexhost {

class HostErrors;

class UserDialogs {
public:
    enum class Kind { ErrorDialog, ErrorBox, WarningBox, InformationBox, QuestionBox, YesNoBox };
    struct MessageBox {
        VexMessageBoxType_e type;
        std::string text;
        bool answer;  // what the call returned
    };
    struct FileDialog {
        VexSelectFileOption_e mode;
        std::string fileTypeName;
        std::string defaultFileName;
        std::string filter;
        std::optional<std::string> answer;  // nullopt: canceled
    };
    using Sink = std::function<void(Kind kind, const std::string& text)>;

    class Responder {
    public:
        virtual ~Responder() = default;
        // An error dialog or a message box that only informs; returns when it was dismissed.
        virtual void acknowledge(Kind kind, const std::string& text) = 0;
        // A Yes/No or OK/Cancel box: true for Yes and OK.
        virtual bool answer(VexMessageBoxType_e type, const std::string& text) = 0;
        // The file chosen, or nullopt for Cancel. request.answer is not set yet.
        virtual std::optional<std::string> chooseFile(const FileDialog& request) = 0;
    };

    explicit UserDialogs(HostErrors& errors) : errors_(errors) {}
    UserDialogs(const UserDialogs&) = delete;
    UserDialogs& operator=(const UserDialogs&) = delete;

    // ---- Answers given in advance ----
    void queueAnswer(bool yes) { answers_.push_back(yes); }
    void queueFileName(const std::string& name) { fileNames_.emplace_back(name); }
    void queueFileCancel() { fileNames_.emplace_back(std::nullopt); }
    std::size_t pendingAnswers() const { return answers_.size(); }
    std::size_t pendingFileNames() const { return fileNames_.size(); }

    // ---- What was shown ----
    const std::vector<std::string>& errorMessages() const { return errorMessages_; }
    const std::vector<MessageBox>& messageBoxes() const { return messageBoxes_; }
    const std::vector<FileDialog>& fileDialogs() const { return fileDialogs_; }
    const std::vector<std::string>& helpPages() const { return helpPages_; }

    void setSink(Sink sink) { sink_ = std::move(sink); }
    // Not owned; nullptr: no responder.
    void setResponder(Responder* responder) { responder_ = responder; }

    // ---- SDK side (arguments checked by the SDK layer) ----
    void showError(const char* message);
    bool showMessageBox(const char* message, VexMessageBoxType_e type);
    // nullopt for Cancel.
    std::optional<std::string> askFileName(VexSelectFileOption_e mode, const char* fileTypeName,
                                           const char* defaultFileName, const char* filter);
    void showHelp(const char* page) { helpPages_.emplace_back(page); }

    // Nothing queued, nothing recorded, no sink, no responder.
    void reset();

private:
    HostErrors& errors_;
    std::deque<bool> answers_;
    std::deque<std::optional<std::string>> fileNames_;
    std::vector<std::string> errorMessages_;
    std::vector<MessageBox> messageBoxes_;
    std::vector<FileDialog> fileDialogs_;
    std::vector<std::string> helpPages_;
    Sink sink_;
    Responder* responder_ = nullptr;
};

}  // namespace vexhost

#endif
