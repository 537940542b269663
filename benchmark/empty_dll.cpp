// A library with nothing in it, the floor of loading one.
extern "C" int Nothing();
extern "C" int Nothing() { return 0; }
