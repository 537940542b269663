// talq.exe: everything lies in Talq.dll.
#include "devhost/script/program.h"

int main(int argc, char** argv) { return TalqMain(argc, argv); }
