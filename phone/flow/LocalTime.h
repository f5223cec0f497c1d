/// Local times of a zone, as people write them, and the moments they stand for.
#pragma once

#include <ctime>
#include <optional>
#include <string>

namespace phone {

/// Whether the time zone database has a zone of this name; "UTC" always is one.
bool isZone(const std::string& name);

/// Whether the text is a time like 2026-03-05T14:37:12 (the seconds may be left out) of a day that exists.
bool isLocalTime(const std::string& text);

/// Its parts, seconds 0 where they are left out; nullopt for a text that is no local time.
std::optional<std::tm> localFields(const std::string& text);

/// The moment, in seconds since 1970, UTC, at which clocks in the zone show the local time; the first of
/// the two in the hour that comes twice. nullopt for a text that is no local time and for a time that
/// the zone's clocks skip. Changes TZ while it works; others wait.
std::optional<double> momentOf(const std::string& localTime, const std::string& zone);

/// "2026-03-05T14:37:12+01:00"; parts of a second are dropped. Changes TZ, as above.
std::string iso8601(double moment, const std::string& zone);

} // namespace phone
