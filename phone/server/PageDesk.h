/// What the page's requests work on together.
#pragma once

#include "phone/server/PageHands.h"
#include "phone/server/PagePlay.h"
#include "phone/server/PageRecording.h"
#include "phone/server/StoreWatch.h"

#include <atomic>
#include <mutex>

namespace phone {

struct PageDesk {
    explicit PageDesk(LivePhone& livePhone);

    LivePhone& phone;
    PageHands hands;
    PageRecording recording;
    PagePlay player;
    StoreWatch stores;
    std::mutex acting;                 // one thing is done, and written down, at a time
    std::atomic<bool> closing = false; // the server ends
};

} // namespace phone
