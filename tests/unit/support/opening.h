// What opening a renderer sends to OpenGL.
#pragma once

#include <string>

#include "tests/recorder/recorder.h"

// What fog sends where it is on, as a new renderer has it.
struct FogOn {
  std::string mode = "GL_LINEAR";
  std::string density = "0.01";
  std::string color = "{0.2, 0.2, 0.2, 1}";
  std::string start = "-200";
  std::string end = "200";

  std::string Log() const {
    return recorder::Lines({"glEnable(GL_FOG)", "glFogi(GL_FOG_MODE, " + mode + ")",
                            "glFogf(GL_FOG_DENSITY, " + density + ")", "glFogfv(GL_FOG_COLOR, " + color + ")",
                            "glFogf(GL_FOG_START, " + start + ")", "glFogf(GL_FOG_END, " + end + ")"});
  }
};

// The parts that settings change; the rest of the initial state is fixed.
struct Opening {
  std::string viewport = "glViewport(16, 80, 400, 400)\n";
  std::string viewer = "gluLookAt(0, 0, 1000, 0, 0, 0, 0, 1, 0)\n";
  std::string shading = "glShadeModel(GL_FLAT)\n";
  std::string light{};
  std::string fog{};
  std::string frustum = "glFrustum(-200, 200, 200, -200, -200, 200)\n";
  std::string clearColor = "glClearColor(0, 0, 0, 1)\n";
  std::string blend = "glDisable(GL_BLEND)\n";

  // All of it.
  std::string Log() const {
    return viewport + "glMatrixMode(GL_MODELVIEW)\nglLoadIdentity()\n" + viewer + shading +
           "glFrontFace(GL_CCW)\n"
           "glDisable(GL_CULL_FACE)\n"
           "glDepthFunc(GL_LEQUAL)\n"
           "glEnable(GL_DEPTH_TEST)\n"
           "glEnable(GL_NORMALIZE)\n"
           "glHint(GL_POLYGON_SMOOTH_HINT, GL_FASTEST)\n"
           "glHint(GL_LINE_SMOOTH_HINT, GL_FASTEST)\n" +
           light + fog + Projection() + clearColor + "glClear(GL_DEPTH_BUFFER_BIT)\n" + blend;
  }
  // The part that sets the projection.
  std::string Projection() const {
    return "glMatrixMode(GL_PROJECTION)\nglLoadIdentity()\n" + frustum + "glMatrixMode(GL_MODELVIEW)\n";
  }
};
