// The prompt of `talq -i`.
#pragma once

#include <cstdio>
#include <string>

#include "devhost/script/parse.h"

namespace devhost::script {

// Prints the greeting and how to leave, then runs statements as they are entered, until the input ends or says "exit".
// Errors are shown and do not end it. The script's objects are gone when this returns; false when one of them raised an
// error at its end.
bool RunPrompt(std::FILE* input, const std::string& greeting, FileReader readFile);

}  // namespace devhost::script
