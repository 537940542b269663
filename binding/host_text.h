// Texts for the host.
#pragma once

// The host takes char* and only reads.
inline char* HostText(const char* text) { return const_cast<char*>(text); }
