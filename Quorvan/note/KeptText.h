/// What a cancelled note left for the next one: a file of two texts in the resource directory.
#pragma once

#include "platform/foundation/NSString.h"

namespace quorvan {

struct KeptText {
    NSString text;  // nil: nothing is kept
    NSString title; // nil: no title is kept

    /// What the next note starts with; nothing while the person does not want texts kept.
    static KeptText read();
    void write() const;
};

} // namespace quorvan
