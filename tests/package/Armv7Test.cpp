#include "tests/package/Armv7Processor.h"
#include "tests/package/ShippedPackage.h"

#include <gmock/gmock.h>

#include <regex>

using testing::ElementsAre;

namespace package {

namespace {

/// The slice for armv7, loaded and run; the runtime's functions are the test's.
class RunningArmv7 : public ShippedPackage {
protected:
    using Address = Armv7Processor::Address;

    /// On a system that has all that the slice imports, or all but what it imports weakly.
    explicit RunningArmv7(bool lacksWeakImports = false) {
        const std::string path = slice("armv7");
        const std::string bytes = folder.read("armv7/Quorvan.dylib");
        const std::string commands = output("llvm-otool-19 -l '" + path + "'");
        for (const auto& match : all(commands, "vmaddr (\\S+)\n.*\n +fileoff (\\d+)\n +filesize (\\d+)")) {
            processor.load(number(match[1], 16), bytes.substr(number(match[2], 10), number(match[3], 10)));
        }
        const std::string pointers = output("llvm-objdump-19 --macho --rebase '" + path + "'");
        for (const auto& match : all(pointers, "__DATA +\\S+ +(0x\\S+) +pointer")) {
            processor.rebase(number(match[1], 16));
        }
        const std::string imports = output("llvm-objdump-19 --macho --bind --lazy-bind '" + path + "'");
        for (const auto& match : all(imports, "__DATA +\\S+ +(0x\\S+) .*?(\\w+)( \\(weak_import\\))?\n")) {
            if (match[3].empty() || !lacksWeakImports) {
                processor.bind(number(match[1], 16), match[2]);
            }
        }
        const auto place = all(commands, "sectname __mod_init_func\n.*\n +addr (\\S+)");
        initialiser = processor.word(Armv7Processor::loaded(number(place.at(0)[1], 16)));
        answerAsTheRuntime();
    }

    static std::vector<std::vector<std::string>> all(const std::string& text, const std::string& pattern) {
        std::vector<std::vector<std::string>> found;
        const std::regex expression(pattern);
        for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
            found.emplace_back(match->begin(), match->end());
        }
        return found;
    }
    static Address number(const std::string& digits, int radix) {
        return static_cast<Address>(std::stoul(digits, nullptr, radix));
    }

    Address unique(const std::string& name) {
        const auto [place, isNew] = known.emplace(name, 0);
        if (isNew) {
            place->second = processor.object(name);
        }
        return place->second;
    }
    void answerAsTheRuntime() {
        const auto name = [this](int index) { return processor.nameOf(processor.argument(index)); };
        processor.answer("_objc_getClass", [this] { return unique(processor.text(processor.argument(0))); });
        processor.answer("_sel_registerName", [this] { return unique(processor.text(processor.argument(0))); });
        processor.answer("_object_getClass", [this, name] { return unique("class of " + name(0)); });
        processor.answer("_objc_allocateClassPair", [this] { return unique(processor.text(processor.argument(1))); });
        processor.answer("_class_addIvar", [] { return 1; });
        processor.answer("_class_getInstanceMethod", [this, name] { return processor.object(name(1)); });
        processor.answer("_method_getTypeEncoding", [this, name] {
            const std::string selector = name(0);
            const Address encoding = processor.object("encoding");
            const bool isTest = selector == "canPerformWithActivityItems:";
            const bool isOrder = selector == "prepareWithActivityItems:";
            // "c@:@", "v@:@" or "@@:", from the lowest byte up
            processor.setWord(encoding, isTest ? 0x403a4063 : isOrder ? 0x403a4076 : 0x003a4040);
            processor.setWord(encoding + 4, 0);
            return encoding;
        });
        processor.answer("_class_addMethod", [this, name] {
            hooked.push_back("add " + name(0) + " " + name(1) + " " + processor.text(processor.argument(3)));
            methods[name(0) + " " + name(1)] = processor.argument(2);
            return 1;
        });
        processor.answer("_MSHookMessageEx", [this, name] {
            hooked.push_back("hook " + name(0) + " " + name(1));
            methods[name(0) + " " + name(1)] = processor.argument(2);
            processor.setWord(processor.argument(3), processor.symbol("previous " + name(0) + " " + name(1)));
            return 0;
        });
        processor.answer("_objc_msgSend", [this, name] {
            const std::string selector = name(1);
            if (selector == "retain" || selector == "release" || selector == "autorelease") {
                return processor.argument(0);
            }
            const std::string first = selector.ends_with(':') ? name(2) : "";
            sent.push_back(name(0) + " " + selector + (first.empty() ? "" : " " + first));
            return processor.object("<" + selector + ">");
        });
    }

    /// What the sheet leaves out on a system that has these.
    Lines excluded(const Lines& activities) {
        const std::string prefix = "UIActivityType";
        for (const std::string& activity : activities) {
            // A variable that holds a string.
            processor.setWord(processor.symbol("_" + prefix + activity), unique(prefix + activity));
        }
        EXPECT_TRUE(processor.call(initialiser));
        EXPECT_TRUE(processor.call(methods.at("InCallController invokeShare:"),
                                   {processor.object("controller"), unique("invokeShare:")}));
        Lines found;
        for (const std::string& line : sent) {
            if (const auto at = line.find(prefix); at != std::string::npos) {
                found.push_back(line.substr(at + prefix.size()));
            }
        }
        return found;
    }

    Armv7Processor processor;
    Address initialiser = 0;
    std::map<std::string, Address> known;
    std::map<std::string, Address> methods;
    Lines hooked;
    Lines sent;
};

TEST_F(RunningArmv7, HooksBothCallScreensAtLoad) {
    ASSERT_TRUE(processor.call(initialiser));

    EXPECT_THAT(hooked,
                ElementsAre("hook PHCallViewController viewDidAppear:", "add PHCallViewController invokeShare: v@:",
                            "hook InCallController viewDidLoad", "hook InCallController loadView",
                            "hook InCallController viewDidAppear:", "add InCallController invokeShare: v@:"));
}

TEST_F(RunningArmv7, AddsTheTapAreaAfterThePhoneApplicationsOwnMethod) {
    processor.answer("previous InCallController viewDidLoad", [this] {
        sent.emplace_back("previous");
        return 0;
    });
    ASSERT_TRUE(processor.call(initialiser));

    ASSERT_TRUE(processor.call(methods.at("InCallController viewDidLoad"),
                               {processor.object("controller"), unique("viewDidLoad")}));

    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.front(), "previous");
    EXPECT_THAT(sent, testing::Contains("<view> addSubview: <initWithFrame:>"));
    EXPECT_THAT(sent, testing::Contains("<initWithFrame:> addGestureRecognizer: <initWithTarget:action:>"));
}

TEST_F(RunningArmv7, ExcludesEachOfThePlatformsActivities) {
    const Lines activities = {"Print",           "CopyToPasteboard", "AssignToContact", "SaveToCameraRoll",
                              "PostToFacebook",  "PostToTwitter",    "PostToWeibo",     "AirDrop",
                              "AddToReadingList"};

    EXPECT_EQ(excluded(activities), activities);
}

class RunningArmv7OnAnOldSystem : public RunningArmv7 {
protected:
    RunningArmv7OnAnOldSystem() : RunningArmv7(true) {}
};

TEST_F(RunningArmv7OnAnOldSystem, LeavesOutTheActivitiesThatItLacks) {
    const Lines activities = {"Print",          "CopyToPasteboard", "AssignToContact", "SaveToCameraRoll",
                              "PostToFacebook", "PostToTwitter",    "PostToWeibo"};

    EXPECT_EQ(excluded(activities), activities);
}

} // namespace

} // namespace package
