#include "phone/webdriver/Actions.h"

#include <gtest/gtest.h>

using namespace phone::webdriver;
using nlohmann::json;

namespace {

std::string pointer(const std::string& actions, const std::string& id = "finger") {
    return R"({"type":"pointer","id":")" + id + R"(","parameters":{"pointerType":"touch"},"actions":[)" + actions +
           "]}";
}

std::string keys(const std::string& actions) { return R"({"type":"key","id":"keyboard","actions":[)" + actions + "]}"; }

const std::string move = R"({"type":"pointerMove","x":10,"y":20,"duration":100})";
const std::string down = R"({"type":"pointerDown"})";
const std::string up = R"({"type":"pointerUp"})";

std::vector<Tick> read(const std::string& sources, bool fingerIsDown = false) {
    return readActions(json::parse("[" + sources + "]"), fingerIsDown);
}

/// The protocol's name of what is refused; "" for what is not.
std::string refused(const std::string& sources, bool fingerIsDown = false) {
    try {
        read(sources, fingerIsDown);
        return "";
    } catch (const Refusal& refusal) {
        return refusal.name();
    }
}

} // namespace

TEST(ActionReader, ReadsATickForEachAction) {
    const auto ticks = read(pointer(move + "," + down + R"(,{"type":"pause","duration":50},)" + up));

    ASSERT_EQ(ticks.size(), 4U);
    EXPECT_EQ(std::get<PointerMove>(ticks[0].items.at(0)).to.x, 10);
    EXPECT_EQ(ticks[0].seconds, 0.1);
    EXPECT_EQ(ticks[2].seconds, 0.05);
}

TEST(ActionReader, JoinsTheTicksOfItsSources) {
    const auto ticks =
        read(pointer(move) + "," +
             keys(R"({"type":"pause","duration":300},{"type":"keyDown","value":"a"},{"type":"keyUp","value":"a"})"));

    ASSERT_EQ(ticks.size(), 3U);
    EXPECT_EQ(ticks[0].items.size(), 2U);
    EXPECT_EQ(ticks[0].seconds, 0.3);
    EXPECT_EQ(std::get<KeyDown>(ticks[1].items.at(0)).key, "a");
}

TEST(ActionReader, KnowsWhereAMoveStartsFrom) {
    const auto ticks = read(pointer(
        R"({"type":"pointerMove","x":1,"y":2,"origin":{"element-6066-11e4-a52e-4f735466cecf":"E1-5"}},
           {"type":"pointerMove","x":1,"y":2,"origin":"pointer"})"));

    EXPECT_EQ(std::get<PointerMove>(ticks[0].items.at(0)).element, "E1-5");
    EXPECT_EQ(std::get<PointerMove>(ticks[1].items.at(0)).origin, PointerMove::Origin::Pointer);
}

TEST(ActionReader, GoesOnWithAFingerThatIsDown) { EXPECT_EQ(refused(pointer(up), true), ""); }

TEST(ActionReader, RefusesWhatIsNoListOfSources) {
    EXPECT_THROW(readActions(5, false), Refusal);
    EXPECT_THROW(readActions(json::object(), false), Refusal);
}

TEST(ActionReader, RefusesWhatCannotBe) {
    const std::string all[] = {
        "5",
        R"({"type":"pointer","actions":[]})",        // no id
        R"({"type":"voice","id":"a","actions":[]})", // no such source
        R"({"type":"pointer","id":"a"})",            // no actions
        R"({"type":"none","id":"a","actions":{}})",  // no list
        pointer("5"),                                // no action
        pointer(R"({"type":"pointerMove","x":1})"),  // no y
        pointer(R"({"type":"pointerMove","x":"1","y":1})"),
        pointer(R"({"type":"pointerMove","x":1,"y":1,"origin":"moon"})"),
        pointer(R"({"type":"pause","duration":-1})"),
        pointer(R"({"type":"pause","duration":60001})"),
        pointer(up),                             // up first
        pointer(move + "," + down + "," + down), // down twice
        pointer(R"({"type":"dance"})"),
        pointer(move) + R"(,{"type":"none","id":"finger","actions":[]})", // the same id twice
        keys(R"({"type":"keyDown","value":"a"})"),                        // never up
        keys(R"({"type":"keyUp","value":"a"})"),                          // never down
        keys(R"({"type":"keyDown","value":""})"),
        keys(down),
        R"({"type":"none","id":"a","actions":[)" + down + "]}",
    };
    for (const std::string& sources : all) {
        EXPECT_EQ(refused(sources), "invalid argument") << sources;
    }
    EXPECT_EQ(refused(pointer(down), true), "invalid argument") << "it is down already";
}

TEST(ActionReader, RefusesWhatAPhoneDoesNotHave) {
    const std::string all[] = {
        pointer(move) + "," + pointer(move, "second"),
        R"({"type":"wheel","id":"a","actions":[{"type":"scroll","x":1,"y":1,"deltaX":0,"deltaY":9}]})",
        pointer(R"({"type":"pointerCancel"})"),
    };
    for (const std::string& sources : all) {
        EXPECT_EQ(refused(sources), "unsupported operation") << sources;
    }
}
