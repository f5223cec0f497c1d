/// The share sheet's Note.
#pragma once

#include "Quorvan/activities/ShareActivity.h"
#include "Quorvan/note/NoteController.h"

namespace quorvan {

class NoteTaking : public ShareActivity<NoteTaking> {
public:
    static constexpr auto objc_name = "NoteTaking";
    static constexpr auto titleKey = "Note";
    static constexpr auto type = "com.tovesk.notetaking";
    static constexpr auto image = "notes.png";
    using Compose = NoteController;
};

} // namespace quorvan
