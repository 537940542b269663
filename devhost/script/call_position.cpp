#include "devhost/script/call_position.h"

#include "devhost/runtime/place.h"

namespace devhost::script {
namespace {

Position current;

Place FindPlace() { return current.source ? Place{current.source->name, LineOf(current)} : Place(); }

}  // namespace

CallPosition::CallPosition(Position at) : outer(current) { current = at; }
CallPosition::~CallPosition() { current = outer; }

void TellCallPositions() { FindPlacesBy(FindPlace); }

}  // namespace devhost::script
