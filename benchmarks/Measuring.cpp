// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "Measuring.h"

#include "pictures/LargeBuffer.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace editor {
namespace {

// A virtual machine's host takes free memory away within seconds, and giving it again costs more
// than what is measured, the first touch of a page by a process. Touching as much as any load
// takes, and freeing it, leaves the system with memory that it need not ask for.
void WarmUpTheSystemsMemory() {
    constexpr std::size_t MoreThanALoadTakes = std::size_t{640} << 20;
    constexpr std::size_t PageSize = 4096;
    LargeBuffer memory(MoreThanALoadTakes);
    for (std::size_t i = 0; i < memory.size(); i += PageSize) {
        memory.data()[i] = 1;
    }
}

} // namespace

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    return taken.count();
}

std::int64_t StatusBytes(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string name;
    while (status >> name) {
        if (name == field + ":") {
            std::int64_t kibibytes = 0;
            status >> kibibytes;
            return kibibytes * 1024;
        }
    }
    return 0;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<double> InFreshProcess(const std::string& program,
                                   const std::vector<std::string>& arguments, std::size_t count) {
    std::ostringstream line;
    line << std::quoted(program, '\'');
    for (const std::string& argument : arguments) {
        line << ' ' << std::quoted(argument, '\'');
    }
    WarmUpTheSystemsMemory();
    std::FILE* output = popen(line.str().c_str(), "r");
    std::vector<double> numbers;
    double number = 0;
    while (output != nullptr && std::fscanf(output, "%lf", &number) == 1) {
        numbers.push_back(number);
    }
    if (output == nullptr || pclose(output) != 0 || numbers.size() != count) {
        throw std::runtime_error("a measurement failed: " + line.str());
    }
    return numbers;
}

} // namespace editor
