// A script's truth value inside the module.
#pragma once

// Keeps the int that the host gave: a getter answers with the value that the setter received.
enum Flag : int { kOff = 0, kOn = 1 };
