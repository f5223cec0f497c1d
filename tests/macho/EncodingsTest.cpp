// How the library names the types of its methods to the device's runtime, as the slices hold it.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace phone::macho {
namespace {

class Encodings : public testing::Test {
protected:
    static std::string sliceOf(const std::string& processor) {
        std::ifstream file(BUILD_DIRECTORY "/package/" + processor + "/Quorvan.dylib", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Whether this is one of the slice's texts, whole.
    static bool holds(const std::string& slice, const std::string& text) {
        const std::string end(1, '\0');
        return slice.find(end + text + end) != std::string::npos;
    }
};

// Holds: encodings-by-word-size
TEST_F(Encodings, TruthNumbersAndFloatsAreThoseOfTheWordSize) {
    const std::string wide = sliceOf("arm64");
    const std::string narrow = sliceOf("armv7");

    for (const char* types : {"B@:@", "q@:@", "v@:qd", "v@:{CGRect={CGPoint=dd}{CGSize=dd}}"}) {
        EXPECT_TRUE(holds(wide, types)) << types;
        EXPECT_FALSE(holds(narrow, types)) << types;
    }
    for (const char* types : {"c@:@", "i@:@", "v@:id", "v@:{CGRect={CGPoint=ff}{CGSize=ff}}"}) {
        EXPECT_TRUE(holds(narrow, types)) << types;
        EXPECT_FALSE(holds(wide, types)) << types;
    }
}

} // namespace
} // namespace phone::macho
