// The rooms of src/ and what each may include: only rooms on the floors below it. A new room or a
// new arrow is entered here, and in docs/architecture.md, on purpose.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

const std::map<std::string, std::set<std::string>> Below = {
    {"platform", {}},
    {"png", {"platform/DrawingSurface.h", "platform/LargeBuffer.h"}},
    {"model", {"platform"}},
    {"view", {"platform", "model", "png"}},
    {"edit", {"platform", "model", "view"}},
    {"dialogs", {"platform", "model", "view"}},
    {"app", {"platform", "model", "view", "edit", "dialogs"}},
};

TEST(Includes, PointDownOnly) {
    const std::filesystem::path source = SOURCE_FOLDER;
    const std::regex include(R"re(^\s*#\s*include\s*"(([a-z]+)/[^"]+)")re");
    int arrows = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(source)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        const auto relative = entry.path().lexically_relative(source);
        const std::string room = relative.begin()->string();
        ASSERT_TRUE(Below.contains(room)) << relative;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::smatch found;
            if (std::regex_search(line, found, include)) {
                ++arrows;
                EXPECT_TRUE(found[2] == room || Below.at(room).contains(found[2]) ||
                            Below.at(room).contains(found[1]))
                    << relative << " includes " << found[1];
            }
        }
    }
    EXPECT_GT(arrows, 50);
}

} // namespace
