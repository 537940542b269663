// Arguments for every row of the method table.
#pragma once

#include <vector>

#include "devhost/signature.h"
#include "host/talq.h"

// Values of the kinds that the row lists, with which its method does all its work. A byte string is too short for the
// mask of Put2bBitmap, which therefore makes a copy.
std::vector<Variable> ArgumentsOf(const devhost::Signature& signature);
