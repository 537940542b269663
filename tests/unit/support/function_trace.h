// Watches the functions that the host compiles from text.
#pragma once

// From now on writes a line to stderr when a function is compiled, "compiled TEXT", and when it is destroyed,
// "destroyed TEXT".
void TraceFunctions();
