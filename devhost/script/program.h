// The program talq, apart from its main function; exported from Talq.dll.
#pragma once

// Returns the exit code: 0, 1 after an error, 2 when the command line is not understood, 3 when the check of a script
// that ended without an error found something.
extern "C" int TalqMain(int argc, char** argv);
