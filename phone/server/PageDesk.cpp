#include "phone/server/PageDesk.h"

#include "phone/eventkit/CalendarFolder.h"
#include "phone/flow/Preferences.h"
#include "phone/notes/NotesDatabase.h"

#include <filesystem>

namespace phone {

namespace {

std::string folderOf(const std::string& root, const char* file) {
    return std::filesystem::path(root + file).parent_path().string();
}

} // namespace

PageDesk::PageDesk(LivePhone& livePhone)
    : phone(livePhone), hands(livePhone), recording(livePhone), player(livePhone),
      stores({folderOf(livePhone.root(), NotesDatabase::devicePath), livePhone.root() + CalendarFolder::devicePath,
              folderOf(livePhone.root(), preferencesPath)},
             [this] { phone.announce(); }) {}

} // namespace phone
