// vextest::RecordingListObserver: a list model observer that keeps every change it is told of, in
// the order it was told. Given a journal, it also writes each change there as text ("Inserted
// [0, 1]", after "<name> " when it has a name), so one journal shared by several observers, or by
// an observer and a model's own hooks, shows the order of everything that happened.
#ifndef VEXTEST_RECORDINGLISTOBSERVER_H
#define VEXTEST_RECORDINGLISTOBSERVER_H

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "model/ListModelChange.h"
#include "model/ListModelObserverInterface.h"

namespace vextest {

class RecordingListObserver : public vexplot::vexutiltools::ListModelObserverInterface {
public:
    using ListModelChange = vexplot::vexutiltools::ListModelChange;

    RecordingListObserver() = default;
    explicit RecordingListObserver(std::vector<std::string>& journal, std::string name = "")
        : journal_(&journal), name_(std::move(name)) {}

    void listModelChanged(const ListModelChange& change) override {
        changes.push_back(change);
        if (journal_ == nullptr)
            return;
        std::ostringstream text;
        if (!name_.empty())
            text << name_ << ' ';
        text << change;
        journal_->push_back(text.str());
    }

    std::vector<ListModelChange> changes;

private:
    std::vector<std::string>* journal_ = nullptr;
    std::string name_;
};

}  // namespace vextest

#endif
