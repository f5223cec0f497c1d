// The system is short of memory while somebody writes.

#include "tests/flow/WholePhone.h"

namespace phone {
namespace {

class MemoryWarning : public WholePhone {};

// Holds: memory-warning-keeps-the-view
TEST_F(MemoryWarning, CostsNothingOfANoteShownOrBeneathAChooser) {
    make();

    play(open("Note") + "- tapOn: '  Note'\n- inputText: 'milk'\n- memoryWarning\n- assertVisible: 'milk'\n"
                        "- tapOn: 'Account'\n- waitForAnimationToEnd\n- memoryWarning\n- tapOn: 'Mail'\n"
                        "- tapOn: 'Back'\n- waitForAnimationToEnd\n- assertVisible: 'milk'\n- tapOn: 'Done'\n");

    ASSERT_EQ(recorded("notes").size(), 1U);
    EXPECT_EQ(recorded("notes")[0]["content"], "milk");
    EXPECT_EQ(recorded("notes")[0]["store"], "Mail");
}

} // namespace
} // namespace phone
