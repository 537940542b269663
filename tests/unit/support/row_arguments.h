// What every row of the method table is called with in sweeps over all of them.
#pragma once

#include <vector>

#include "devhost/runtime/signature.h"
#include "host/talq.h"

// Values of the kinds that the row lists, with which its method does all its work. A byte string is too short for the
// mask of Put2bBitmap, which therefore makes a copy.
std::vector<Variable> ArgumentsOf(const devhost::Signature& signature);

// The script object that the method is called on: a renderer is open, and a constructor's is empty.
Variable ObjectFor(const devhost::Signature& signature);

// Ends what the method has begun on the object, and forgets the log.
void EndWhatBegan(const devhost::Signature& signature, Variable& object);
