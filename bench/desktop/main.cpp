// desktop_bench: this project's window beside a plain Qt window, on the same addresses.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <exception>
#include <filesystem>

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "Comparison.h"
#include "Measurement.h"

namespace orvo::bench {
namespace {

constexpr Plan kPlans[] = {{1'000, 3}, {100'000, 3}, {1'000'000, 1}};

int Run(int count, char** arguments) {
    CLI::App app("Measures this project's window beside a plain Qt window.", "desktop_bench");
    bool isQuick = false;
    std::size_t people = 0;
    WindowKind child = WindowKind::Ours;
    std::string store;
    app.add_flag("--quick", isQuick, "1000 addresses once, only to see that it works");
    app.add_option("--people", people, "So many addresses, once");
    auto* inChild = app.add_option("--child", child, "Measure the window ours or plain here")
                        ->transform(CLI::CheckedTransformer(std::map<std::string, WindowKind>{
                            {"ours", WindowKind::Ours}, {"plain", WindowKind::Plain}}));
    app.add_option("--store", store, "The store file of the window")->needs(inChild);
    CLI11_PARSE(app, count, arguments);

    if (*inChild) return MeasureWindow(child, store, count, arguments);
    std::vector<Plan> plans(std::begin(kPlans), std::end(kPlans));
    if (isQuick) plans = {{kPlans[0].people, 1}};
    if (people > 0) plans = {{people, 1}};
    CompareWindows(std::filesystem::read_symlink("/proc/self/exe").string(), plans);
    return 0;
}

}  // namespace
}  // namespace orvo::bench

int main(int count, char** arguments) {
    try {
        return orvo::bench::Run(count, arguments);
    } catch (const std::exception& error) {
        fmt::print(stderr, "desktop_bench: {}\n", error.what());
        return 1;
    }
}
