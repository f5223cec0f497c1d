/// Messages that nobody answers.
#pragma once

namespace phone {

/// Makes a message that its receiver does not answer raise NSInvalidArgumentException with the platform's
/// words, after an entry in the log. Classes that forward messages themselves keep doing so.
void installUnanswered();

} // namespace phone
