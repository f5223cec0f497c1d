/// The phone application that runs in this process: its classes, its window and its screens.
#pragma once

namespace phone {

/// Registers the classes of the chosen application, and of no other: before the first library is loaded.
void registerApplicationClasses();

/// Makes the window and its idle screen, as the application does at its start: after the libraries are loaded.
void startApplication();

} // namespace phone
