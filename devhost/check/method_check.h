// The check's view of the script's calls: which method runs, on which renderer, and whether it came to anything.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "devhost/check/findings.h"
#include "devhost/check/method_facts.h"
#include "devhost/gl_trace/watch.h"
#include "devhost/runtime/call_observer.h"

namespace devhost::check {

class MethodCheck {
 public:
  explicit MethodCheck(Findings& allFindings) : findings(allFindings) {}

  void Begins(const MethodCall& call);
  void Ends(const MethodCall& call);

  // What the running method does: it reaches OpenGL, hands a vertex over, makes a context, makes one current (null:
  // none), deletes one; it drew nothing for a reason that is told already.
  void ReachedOpenGl();
  void DrewVertex();
  void MadeContext(const void* context);
  void MadeCurrent(const void* context);
  void DeletedContext(const void* context);
  void ToldWhyNothing();

  // The running method.
  Where Here() const;
  // The method that gave the numbers of a call of OpenGL: the running one, or one that was called before on the same
  // object, whose settings an opening applies.
  Where SourceOf(const gl_trace::Call& call) const;
  bool IsDestructor() const;
  // The object that the running method was called on.
  const void* Self() const;
  // Whether a method that is there to draw was called.
  bool HasTriedToDraw() const { return hasTriedToDraw; }

  // Something is drawn in the context: tells of settings of its renderer that wait for this method still.
  void DrawnWithout(const void* context, std::string_view sentBy);

 private:
  struct Frame {
    const MethodFacts* facts;
    const void* object;
    std::vector<float> numbers;  // of its arguments
    bool reachedOpenGl = false;
    bool drew = false;
    bool toldWhyNothing = false;
    bool opens = false;
  };
  struct Renderer {
    const void* context = nullptr;
    bool isBound = false;
  };
  // A call that may have changed what its object keeps.
  struct Setting {
    const MethodFacts* facts;
    Where where;
    std::vector<float> numbers;
    bool waits = false;  // for the method that sends it
  };

  const MethodFacts& FactsFor(const Method& method);
  void Judge(const Frame& frame, const MethodCall& call);
  void Keep(const Frame& frame);

  Findings& findings;
  std::map<const Method*, MethodFacts> factsOfMethods;
  std::vector<Frame> frames;  // the innermost last
  std::map<const void*, Renderer> renderers;
  std::map<const void*, std::vector<Setting>> settings;
  bool hasTriedToDraw = false;
};

}  // namespace devhost::check
