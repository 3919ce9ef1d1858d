// vextest::FailingListObserver: a list model observer that throws std::runtime_error with its
// message at the first change it is told of, and records the ones after it, for tests of what a
// failing observer does to the model and to the other observers.
#ifndef VEXTEST_FAILINGLISTOBSERVER_H
#define VEXTEST_FAILINGLISTOBSERVER_H

#include <stdexcept>
#include <string>
#include <utility>

#include "support/RecordingListObserver.h"

namespace vextest {

class FailingListObserver : public RecordingListObserver {
public:
    explicit FailingListObserver(std::string message) : message_(std::move(message)) {}

    void listModelChanged(const ListModelChange& change) override {
        if (!failed_) {
            failed_ = true;
            throw std::runtime_error(message_);
        }
        RecordingListObserver::listModelChanged(change);
    }

private:
    std::string message_;
    bool failed_ = false;
};

}  // namespace vextest

#endif
