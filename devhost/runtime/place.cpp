#include "devhost/runtime/place.h"

#include "devhost/runtime/text.h"

namespace devhost {
namespace {

Place (*findPlace)() = nullptr;

}  // namespace

std::string Place::Text() const { return line > 0 ? file + ":" + Decimal(line) : "outside of calls"; }

Place CurrentPlace() { return findPlace ? findPlace() : Place(); }

void FindPlacesBy(Place (*finder)()) { findPlace = finder; }

}  // namespace devhost
