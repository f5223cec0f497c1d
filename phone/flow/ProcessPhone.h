/// A phone for flows whose time stands still but for the commands.
#pragma once

#include "phone/flow/ApplicationProcess.h"
#include "phone/flow/FlowPhone.h"

#include <memory>

namespace phone {

class ProcessPhone : public FlowPhone {
public:
    ProcessPhone(std::string executable, std::string root)
        : _executable(std::move(executable)), _root(std::move(root)) {}

    Screen* screen() override { return _process.get(); }
    void start(const LaunchSettings& settings, double now) override;
    void end() override;
    void forget() override { _process.reset(); }
    std::vector<std::string> loaderLines() override { return _process->loaderLines(); }

private:
    std::string _executable;
    std::string _root;
    std::unique_ptr<ApplicationProcess> _process; // nullptr when none runs
};

} // namespace phone
