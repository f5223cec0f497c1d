/// How an engine waits; for its own sources.
#pragma once

#include "phone/flow/Engine.h"

namespace phone {

template <class Question>
bool Engine::waitUntil(const Question& question) {
    for (double waited = 0;; waited += look) {
        if (question()) {
            return true;
        }
        if (waited + look > patience + look / 2) {
            return false;
        }
        _screen.advance(look);
    }
}

} // namespace phone
