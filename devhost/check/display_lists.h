// What display lists have recorded, as far as it decides where their vertices lie.
#pragma once

#include <map>
#include <vector>

#include "devhost/check/transform.h"
#include "devhost/check/view_count.h"

namespace devhost::check {

class DisplayLists {
 public:
  // What is recorded goes into this list, in place of what it held, until End.
  void Begin(unsigned name);
  void End() { recorded = nullptr; }
  bool IsRecording() const { return recorded != nullptr; }

  // Record a step; nothing while none is recorded.
  void Vertex(double x, double y, double z);
  void Multiply(const Transform& transform);
  void LoadIdentity();
  void Push();
  void Pop();
  void CallList(unsigned name);

  void Delete(unsigned first, unsigned count);

  // Counts the vertices that the list draws with these matrices, which OpenGL has when it is called.
  void Count(unsigned name, const Transform& modelView, const Transform& projection, ViewCount& count) const;

 private:
  struct Step {
    enum class Kind { Vertex, Multiply, LoadIdentity, Push, Pop, Call };
    Kind kind;
    float x = 0;
    float y = 0;
    float z = 0;
    unsigned number = 0;  // of the list that is called, or of the transform
  };
  struct List {
    std::vector<Step> steps;
    std::vector<Transform> transforms;
  };
  // The stack of model-view matrices of a replay, and the lists that it is in.
  struct Replay {
    std::vector<Transform> stack;
    const Transform& projection;
    ViewCount& count;
    int depth = 0;
  };

  void Add(const Step& step);
  void Run(unsigned name, Replay& replay) const;

  std::map<unsigned, List> lists;
  List* recorded = nullptr;
};

}  // namespace devhost::check
