// How the lists come from the store into the chooser's file, and from there into its rows.

#include "tests/quorvan/Overhear.h"
#include "tests/quorvan/ReminderListTest.h"

namespace {

using phone::Access;
using Texts = std::vector<std::string>;

class ReminderListFiles : public ReminderListTest {
protected:
    /// What another program may have put in the place of the identifiers.
    const std::string foreign =
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><string>A</string></array></plist>";
};

} // namespace

TEST_F(ReminderListFiles, AsksThePersonAtTheFirstOpeningAndIsFilledAtTheNext) {
    start();
    startReminder();

    open();
    EXPECT_TRUE(isVisible("“Phone” Would Like to Access Your Reminders"));
    EXPECT_TRUE(rows().empty());
    touchAndWait("OK");
    EXPECT_TRUE(rows().empty());
    EXPECT_EQ(titles(), (Texts{"Tasks", "Shopping", "Work"}));
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
    EXPECT_FALSE(find("OK"));
}

TEST_F(ReminderListFiles, WritesNothingWhereTheStoreCannotBeAsked) {
    writeTitles({"Garden"});
    useReminders(Access::Allow);
    start();
    startReminder();
    withholdRequests();

    openTwice();

    EXPECT_EQ(rows(), (Texts{"Garden"}));
    EXPECT_EQ(logged("store", "message"), (Texts{"init", "init"}));
}

TEST_F(ReminderListFiles, KeepsTheOldFileWhereItCannotBeWritten) {
    writeTitles({"Garden"});
    useReminders(Access::Allow);
    start();
    startReminder();
    const phone::FileFaults readOnly(phone::FileFaults::Disk::ReadOnly, "/Library/Quorvan");

    openTwice();

    EXPECT_EQ(rows(), (Texts{"Garden"}));
}

TEST_F(ReminderListFiles, DeniedWritesNothingAndShowsWhatTheFileHeld) {
    writeTitles({"Garden"});
    start();
    startReminder();

    open();
    touchAndWait("Don’t Allow");
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Garden"}));
    EXPECT_EQ(fileActions(), (Texts{
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                             }));
}

TEST_F(ReminderListFiles, ALateAnswerIsSeenAtTheNextOpening) {
    remove(titlesFile());
    useReminders(Access::Allow);
    start();
    startReminder();

    open();
    EXPECT_TRUE(rows().empty());
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
}

TEST_F(ReminderListFiles, AnEarlyAnswerIsSeenAtOnce) {
    useReminders(Access::Allow);
    start();
    boot().setStoreAnswers("early");
    startReminder();

    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
    EXPECT_EQ(fileActions(), (Texts{
                                 "write RemindersID.plist refused",
                                 "write Reminders.plist ok",
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                             }));
}

TEST_F(ReminderListFiles, ALateAnswerComesAfterTheFilesWereRead) {
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    EXPECT_EQ(fileActions(), (Texts{
                                 "read RemindersID.plist refused",
                                 "read Reminders.plist ok",
                                 "write RemindersID.plist refused",
                                 "write Reminders.plist ok",
                             }));
}

TEST_F(ReminderListFiles, NeverLeavesAFileOfIdentifiers) {
    useReminders(Access::Allow);
    start();
    boot().setStoreAnswers("early");
    startReminder();

    openTwice();

    EXPECT_FALSE(exists(identifiersFile()));
}

TEST_F(ReminderListFiles, LeavesAFileOfIdentifiersOfAnotherProgramAlone) {
    write(identifiersFile(), foreign);
    useReminders(Access::Allow);
    start();
    startReminder();
    typeNote("milk");

    openTwice();
    touchAndWait("Shopping");
    goBack();
    done();

    EXPECT_EQ(read(identifiersFile()), foreign);
    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Shopping");
}

TEST_F(ReminderListFiles, WithoutAnyListLeavesNoFileOfIdentifiersEither) {
    useReminders(Access::Allow, {});
    start();
    startReminder();

    openTwice();

    EXPECT_FALSE(exists(identifiersFile()));
}

TEST_F(ReminderListFiles, WithoutAnyListLeavesAFileOfIdentifiersOfAnotherProgramAlone) {
    write(identifiersFile(), foreign);
    useReminders(Access::Allow, {});
    start();
    startReminder();

    openTwice();

    EXPECT_EQ(read(identifiersFile()), foreign);
}

TEST_F(ReminderListFiles, AListWithoutATitleHasARowAndKeepsItsPlace) {
    static int asked = 0;
    static objc::Global<NSString> titled;
    useReminders(Access::Allow);
    start();
    startReminder();
    typeNote("milk");
    titled = "titled"_ns;
    phone::correct<"title">(
        objc_getClass("EKCalendar"), +[](id, SEL) { return asked++ == 1 ? id(nullptr) : titled.get().raw(); });

    open();
    EXPECT_EQ(titles(), (Texts{"titled", "", "titled"}));
    goBack();
    open();
    touchAndWait(chooser().select_node(".//*[@row='0,2']").node());
    goBack();
    done();

    ASSERT_EQ(reminders().size(), 1U);
    EXPECT_EQ(reminders()[0].list, "Work");
}

TEST_F(ReminderListFiles, AnotherChooserMadeWhileTheTitlesAreReadCutsNothingOff) {
    static IMP title = nullptr;
    expectLogged("offMainThread"); // the test's own chooser
    useReminders(Access::Allow);
    useEvents(Access::Deny);
    start();
    startCall();
    openSheet();
    openEvent();
    touchAndWait("Calendar"); // from now on its class exists
    goBack();
    cancel();
    openSheet();
    openReminder();
    title = class_getMethodImplementation(objc_getClass("EKCalendar"), objc::selector<"title">());
    phone::correct<"title">(
        objc_getClass("EKCalendar"), +[](id self, SEL selector) -> id {
            const Class other = objc_getClass("EventCalendar"); // takes over what both choosers share
            objc::Object::release(objc::detail::call<id>(reinterpret_cast<id>(other), objc::selector<"new">()));
            return title(self, selector);
        });

    open();

    EXPECT_EQ(titles(), (Texts{"Tasks", "Shopping", "Work"}));
}

TEST_F(ReminderListFiles, HasItsArrayOfTitlesBeforeItAsks) {
    useReminders(Access::Allow);
    start();
    startReminder();
    overhearClass<"NSMutableArray", "alloc", id>();
    overhear<"EKEventStore", "init", id>();
    overhear<"EKEventStore", "requestAccessToEntityType:completion:", void, objc::UInt, void*>();

    open();

    const auto store = std::find(heard().begin(), heard().end(), "EKEventStore init");
    ASSERT_NE(store, heard().end());
    const auto asks = std::find(store, heard().end(), "EKEventStore requestAccessToEntityType:completion: 1 set");
    EXPECT_EQ(asks - store, 3) << "one array for the titles, one for the calendars fetched before";
}

TEST_F(ReminderListFiles, AChooserThatTheSystemDoesNotMakeAsksForNothing) {
    useReminders(Access::Allow);
    start();
    startReminder();
    open(); // from now on its class exists
    goBack();
    const std::size_t asked = log("store").size();
    phone::correct<"initWithNibName:bundle:">(
        objc_getClass("UIViewController"), +[](id self, SEL, id, id) -> id {
            objc::Object::release(self);
            return nullptr;
        });

    run([] {
        const Class chooser = objc_getClass("ReminderList");
        EXPECT_EQ(objc::detail::call<id>(reinterpret_cast<id>(chooser), objc::selector<"new">()), nullptr);
    });

    EXPECT_EQ(log("store").size(), asked);
}

TEST_F(ReminderListFiles, SendsTheStoreItsMessagesInOrder) {
    useReminders(Access::Allow);
    start();
    startReminder();

    open();

    EXPECT_EQ(logged("store", "message"), (Texts{"init", "respondsToSelector:", "requestAccessToEntityType:completion:",
                                                 "calendarsForEntityType:", "title", "title", "title"}));
}

TEST_F(ReminderListFiles, ShowsAStaleFileUntilTheNextOpening) {
    writeTitles({"Garden", "House", "Car", "Tasks"});
    useReminders(Access::Allow);
    start();
    startReminder();

    open();
    EXPECT_EQ(rows(), (Texts{"Garden", "House", "Car", "Tasks"}));
    goBack();
    open();

    EXPECT_EQ(rows(), (Texts{"Tasks", "Shopping", "Work"}));
}

TEST_F(ReminderListFiles, WithoutAnyListWritesAnEmptyFileAndKeepsTheChoice) {
    writeTitles({"Garden"});
    useReminders(Access::Allow, {});
    start();
    startReminder();
    open();
    touchAndWait("Garden");
    goBack();

    open();

    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(exists(titlesFile()));
    EXPECT_TRUE(titles().empty());
    EXPECT_EQ((goBack(), shownValue(0)), "Garden");
}

TEST_F(ReminderListFiles, HasNoRowsWithoutAReadableFile) {
    for (const char* content :
         {"", "no property list", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>"}) {
        SCOPED_TRACE(content);
        write(titlesFile(), content);
        if (!isStarted()) {
            useReminders(Access::Deny);
            start();
            startReminder();
        }

        open();

        EXPECT_TRUE(rows().empty());
        goBack();
    }
    remove(titlesFile());

    open();

    EXPECT_TRUE(rows().empty());
}

TEST_F(ReminderListFiles, SurvivesWhateverStandsInThePlaceOfItsFile) {
    useReminders(Access::Allow);
    start();
    startCall();
    std::size_t saved = 0;

    for (const BrokenFile& broken : brokenFiles()) {
        SCOPED_TRACE(broken.name);
        broken.put(hostPath(titlesFile()));
        openSheet();
        openReminder();
        typeNote("milk");
        open();
        goBack();
        done();

        EXPECT_EQ(reminders().size(), ++saved);
        remove(titlesFile());
    }
}

TEST_F(ReminderListFiles, ShowsARowThatIsNoTextEmpty) {
    write(titlesFile(), "<?xml version=\"1.0\"?><plist "
                        "version=\"1.0\"><array><integer>7</integer><string>Garden</string></array></plist>");
    useReminders(Access::Deny);
    start();
    startReminder();

    open();

    EXPECT_EQ(rows(), (Texts{"", "Garden"}));
    EXPECT_TRUE(log("exception").empty());
}
