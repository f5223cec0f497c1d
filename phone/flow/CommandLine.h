/// The commands of the program.
#pragma once

namespace phone {

/// Does what the command line says and gives the exit status: 0 when all held, 1 when a flow failed, 2 for
/// something unusable, which is told in one line on standard error.
int runCommandLine(int argc, char** argv);

} // namespace phone
