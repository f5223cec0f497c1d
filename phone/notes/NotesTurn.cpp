#include "phone/notes/NotesTurn.h"

namespace phone {

std::recursive_mutex& NotesTurn::mutex() {
    static auto* all = new std::recursive_mutex; // messages may come until the very end of the process
    return *all;
}

} // namespace phone
