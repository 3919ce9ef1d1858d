#include "ConsoleReporter.h"

#include "vexhost/Exporter.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace app {

using vexhost::ProgressStatus;
using vexhost::UserDialogs;

ConsoleReporter::ConsoleReporter(vexhost::Host& host, std::ostream& out) : host_(host), out_(out) {
    host_.userDialogs().setSink(
        [this](UserDialogs::Kind kind, const std::string& text) { showDialog(kind, text); });
    host_.progress().setSink([this](const ProgressStatus::Event& event) { showProgress(event); });
}

ConsoleReporter::~ConsoleReporter() {
    host_.userDialogs().setSink(nullptr);
    host_.progress().setSink(nullptr);
}

void ConsoleReporter::showExportLog() {
    for (const std::string& line : host_.exporter().takeLog())
        out_ << line << '\n';
    out_.flush();
}

void ConsoleReporter::showFailure(const vexhost::MacroFileRunner::Failure& failure) {
    out_ << failure.text() << std::endl;
}

void ConsoleReporter::showProblem(const std::string& text) {
    lastProblem_ = text;
    out_ << "vexplot: " << text << std::endl;
}

void ConsoleReporter::showLine(const std::string& text) {
    out_ << text << std::endl;
}

void ConsoleReporter::showDialog(UserDialogs::Kind kind, const std::string& text) {
    if (kind == UserDialogs::Kind::QuestionBox || kind == UserDialogs::Kind::YesNoBox) {
        // The box was recorded before the sink heard of it, with the answer it got.
        const bool answer = host_.userDialogs().messageBoxes().back().answer;
        const char* word = kind == UserDialogs::Kind::YesNoBox ? (answer ? "Yes" : "No")
                                                               : (answer ? "OK" : "Cancel");
        out_ << text << "\n(answered " << word << ")" << std::endl;
        return;
    }
    out_ << text << std::endl;
}

void ConsoleReporter::showProgress(const ProgressStatus::Event& event) {
    switch (event.kind) {
        case ProgressStatus::EventKind::Started:
        case ProgressStatus::EventKind::TextChanged:
            if (event.kind == ProgressStatus::EventKind::Started || event.text != shownText_)
                out_ << event.text << std::endl;
            shownText_ = event.text;
            shownPercent_ = -1;
            break;
        case ProgressStatus::EventKind::Checked:
            if (event.percent == shownPercent_ && event.text == shownText_)
                break;
            out_ << event.text << ' ' << event.percent << '%' << std::endl;
            shownText_ = event.text;
            shownPercent_ = event.percent;
            break;
        case ProgressStatus::EventKind::Finished:
            shownText_.clear();
            shownPercent_ = -1;
            break;
    }
}

}  // namespace app
}  // namespace vexplot
