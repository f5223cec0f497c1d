/// The recording that runs on the page, if one does.
#pragma once

#include "phone/live/LivePhone.h"
#include "phone/server/FlowRecorder.h"

#include <mutex>
#include <optional>
#include <string>

namespace phone {

/// Calls may come from any thread.
class PageRecording {
public:
    explicit PageRecording(LivePhone& phone) : _phone(phone) {}

    /// Starts the phone application anew, with its clock standing at the present second, and writes down what is done
    /// from then on. Throws InputError while one runs.
    void start();
    /// Ends it; a clock that it has stopped goes on. Throws InputError when none runs.
    void stop();
    bool isOn() const;
    /// Commands so far, of the one that runs or the last one.
    std::size_t count() const;
    /// The flow so far, of the one that runs or the last one. Throws InputError when there has been none.
    std::string text();

    /// To be called before something is done: when that is, for `note`. Looks at what the last thing has led to.
    FlowRecorder::Moment moment();
    /// The tree before a touch at the point, for the recorder; "" while nothing is recorded.
    std::string tree(const ScreenPoint& point);
    /// Calls the work with the recorder, if one runs.
    template <class Work>
    void note(const Work& work) {
        const std::lock_guard lock(_mutex);
        if (_on) {
            work(*_recorder);
        }
    }

private:
    void look();

    LivePhone& _phone;
    mutable std::mutex _mutex;
    std::optional<FlowRecorder> _recorder; // that runs, or of the last one
    bool _on = false;
    bool _stoppedClock = false;
};

} // namespace phone
