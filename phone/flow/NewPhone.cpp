#include "phone/flow/NewPhone.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/InputError.h"
#include "phone/notes/NotesFramework.h"

namespace phone {

namespace fs = std::filesystem;

namespace {

constexpr const char* folders[] = {"Applications", "System/Library", "var/mobile/Library/Preferences",
                                   "var/mobile/Library/Phone"};

} // namespace

void makePhone(const fs::path& root, const fs::path& stage, const Stores& stores) {
    if (fs::exists(fs::symlink_status(root)) && !(fs::is_directory(root) && fs::is_empty(root))) {
        throw InputError({root.string(), 0}, "exists and is not an empty folder; name another or remove it");
    }
    if (!fs::is_directory(stage / "Library")) {
        throw InputError({stage.string(), 0}, "what is installed on a phone is missing here; build the project first");
    }
    try {
        fs::create_directories(root);
        fs::copy(stage / "Library", root / "Library", fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        for (const char* folder : folders) {
            fs::create_directories(root / folder);
        }
        NotesFramework::create(root);
        NotesDatabase::create(root.string() + NotesDatabase::devicePath, stores.notes);
        CalendarFolder(root, EntityType::Reminder).create(stores.reminderAccess, stores.reminders);
        CalendarFolder(root, EntityType::Event).create(stores.eventAccess, stores.events);
    } catch (const fs::filesystem_error& error) {
        throw InputError({root.string(), 0}, "cannot be made: " + error.code().message());
    } catch (const NotesDatabaseError& error) {
        throw InputError({root.string(), 0}, error.what());
    } catch (const CalendarFolderError& error) {
        throw InputError(error.what());
    }
}

} // namespace phone
