/// Words from bundles, in the language of the phone.
#pragma once

namespace phone {

/// Makes NSBundle choose languages and read strings tables as the platform does.
///
/// A table is looked for in the bundle itself, in the folder of the first language of the user that the
/// bundle has (de-AT takes de where there is no closer one), and in that of the bundle's development
/// region. It may be text in UTF-8 or UTF-16, XML or binary; one that is missing or corrupt holds no words.
/// A table is read once in the life of the process.
void installBundles();

/// The bundle at this device path brings classes that the phone has built in: the first `load` of it does the work
/// and answers YES, as does every later one. A bundle has to lie there all the same.
void provideBundle(const char* devicePath, void (*work)());

} // namespace phone
