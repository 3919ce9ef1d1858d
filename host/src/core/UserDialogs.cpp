#include "vexhost/UserDialogs.h"

#include "core/Text.h"
#include "vexhost/HostErrors.h"

namespace vexhost {

namespace {

UserDialogs::Kind kindOf(VexMessageBoxType_e type) {
    switch (type) {
        case VexMessageBox_Error:
            return UserDialogs::Kind::ErrorBox;
        case VexMessageBox_Warning:
            return UserDialogs::Kind::WarningBox;
        case VexMessageBox_Information:
            return UserDialogs::Kind::InformationBox;
        case VexMessageBox_Question:
            return UserDialogs::Kind::QuestionBox;
        case VexMessageBox_YesNo:
            return UserDialogs::Kind::YesNoBox;
    }
    return UserDialogs::Kind::InformationBox;
}

}  // namespace

void UserDialogs::showError(const char* message) {
    errorMessages_.emplace_back(message);
    if (sink_)
        sink_(Kind::ErrorDialog, errorMessages_.back());
    if (responder_ != nullptr)
        responder_->acknowledge(Kind::ErrorDialog, errorMessages_.back());
}

bool UserDialogs::showMessageBox(const char* message, VexMessageBoxType_e type) {
    bool answer = true;
    const bool question = type == VexMessageBox_Question || type == VexMessageBox_YesNo;
    if (question) {
        if (answers_.empty() && responder_ != nullptr) {
            answer = responder_->answer(type, message);
        } else if (answers_.empty()) {
            // Nothing is decided silently: the run fails, naming the question.
            std::string quoted;
            text::appendQuoted(quoted, message);
            errors_.record("VexUtilDialogMessageBox",
                           "no answer was queued for the question " + quoted + "; answered No");
            answer = false;
        } else {
            answer = answers_.front();
            answers_.pop_front();
        }
    }
    messageBoxes_.push_back({type, message, answer});
    if (sink_)
        sink_(kindOf(type), messageBoxes_.back().text);
    if (!question && responder_ != nullptr)
        responder_->acknowledge(kindOf(type), messageBoxes_.back().text);
    return answer;
}

std::optional<std::string> UserDialogs::askFileName(VexSelectFileOption_e mode,
                                                    const char* fileTypeName,
                                                    const char* defaultFileName,
                                                    const char* filter) {
    FileDialog request{mode, fileTypeName != nullptr ? fileTypeName : "",
                       defaultFileName != nullptr ? defaultFileName : "",
                       filter != nullptr ? filter : "", std::nullopt};
    if (!fileNames_.empty()) {
        request.answer = fileNames_.front();
        fileNames_.pop_front();
    } else if (responder_ != nullptr) {
        request.answer = responder_->chooseFile(request);
    }
    fileDialogs_.push_back(request);
    return request.answer;
}

void UserDialogs::reset() {
    answers_.clear();
    fileNames_.clear();
    errorMessages_.clear();
    messageBoxes_.clear();
    fileDialogs_.clear();
    helpPages_.clear();
    sink_ = nullptr;
    responder_ = nullptr;
}

}  // namespace vexhost
