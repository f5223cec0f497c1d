/// The phone in real time, for flows to be played on.
#pragma once

#include "phone/flow/FlowPhone.h"
#include "phone/live/LivePhone.h"

#include <atomic>

namespace phone {

/// Commands take as long as a person would see them take. The phone has to outlive it.
class LiveFlowPhone : public FlowPhone, private Screen {
public:
    explicit LiveFlowPhone(LivePhone& phone) : _phone(phone) {}

    /// From any thread: every command from now on fails, also one that waits.
    void cancel() { _cancelled = true; }
    bool isCancelled() const { return _cancelled; }

    Screen* screen() override;
    void start(const LaunchSettings& settings, double now) override;
    void end() override { _phone.stop(); }
    void forget() override {} // the phone knows
    std::vector<std::string> loaderLines() override { return _phone.status().loaderLines; }

private:
    nlohmann::json request(const nlohmann::json& command) override;
    void checkGoingOn() const;

    LivePhone& _phone;
    std::atomic<bool> _cancelled = false;
};

} // namespace phone
