// The phone's driver: makes phones, plays flows on them, prints their records.

#include "phone/flow/CommandLine.h"

int main(int argc, char** argv) { return phone::runCommandLine(argc, argv); }
