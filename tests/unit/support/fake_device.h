// A class "MDC" for the tests: a device context of any handle with any client rectangle.
#pragma once

#include <string>
#include <vector>

#include "host/talq.h"

// What a device answers, and what it was asked.
struct FakeDevice {
  long long id = 0x1000;
  int left = 0;
  int top = 0;
  int right = 640;
  int bottom = 480;
  // What the module asked for: "GetID", "GetClientRect", and the fields that it read: "left" and so on.
  std::vector<std::string> requests{};
};

// What all MDC objects answer from.
FakeDevice& Device();

// Makes the class known to the host; once.
void RegisterFakeDevice();
