// vextest::FaultInjectionFixture, the fixture of the fault injection tests: runs a scenario under
// every host fault (FaultInjector), prints the tallies of its fault sites and fails with every
// broken rule.
#ifndef VEXTEST_HARDENING_FAULTINJECTIONFIXTURE_H
#define VEXTEST_HARDENING_FAULTINJECTIONFIXTURE_H

#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "FaultInjector.h"
#include "support/HostFixture.h"

namespace vextest {

class FaultInjectionFixture : public HostFixture {
protected:
    void TearDown() override {
        injector_.tearDown();
        HostFixture::TearDown();
    }

    // Runs the scenario under every fault and expects every rule kept (an action that passes no
    // place where the host can fail is checked once, without a fault). The tallies go to the
    // standard output ("<scenario>: N fault sites, <fault> n, ..."), where docs/hardening.md
    // takes its figures from.
    void expectSurvivesEveryFault(const FaultScenario& scenario) {
        const FaultReport report = injector_.run(scenario);
        std::cout << scenario.name << ": " << report.sites << " fault sites";
        for (const auto& entry : report.perFault)
            std::cout << ", " << entry.first << " " << entry.second;
        std::cout << std::endl;
        for (const std::string& failure : report.failures)
            std::cout << "  " << failure << '\n';
        EXPECT_EQ(report.failures.size(), 0u)
            << "the first one: " << (report.failures.empty() ? std::string() : report.failures[0]);
    }

private:
    FaultInjector injector_;
};

}  // namespace vextest

#endif
