// A class "MDC" for the tests: device contexts of any handle with any client rectangle.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/talq.h"

// What the devices answer, and what they were asked.
struct FakeDevice {
  // The handle that the next MDC object gets: each its own, if it is not 0.
  long long id = 0x1000;
  // No edge at 0, and no width or height that is an edge too.
  int left = 16;
  int top = 9;
  int right = 656;
  int bottom = 480;
  // What the module asked for: "GetID", "GetClientRect", and the fields that it read: "left" and so on.
  std::vector<std::string> requests{};
  // The handles of the objects that were made.
  std::map<const void*, long long> ids{};
};

// What all MDC objects answer from; reset, an object that is already there has the handle 0.
FakeDevice& Device();

// Makes the class known to the host; once.
void RegisterFakeDevice();
