// A plugin of clang-tidy for scripts/lint: of what is precompiled, the system's headers, the checks see only what the
// source itself leads to. Otherwise they would look through all of it again for each source, and drop what they find
// there, which takes ten times as long as the source.
#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <string>
#include <vector>

namespace {

// Comes before the checks, once the source is parsed: the declarations at its outermost level are then those that it
// has read itself. Names have been looked up by now, and what they lead to stays.
class LeaveOutThePrecompiled : public clang::ASTConsumer {
 public:
  void HandleTranslationUnit(clang::ASTContext& context) override {
    context.getTranslationUnitDecl()->setHasExternalLexicalStorage(false);
  }
};

class Action : public clang::PluginASTAction {
  std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& /*compiler*/,
                                                        llvm::StringRef /*file*/) override {
    return std::make_unique<LeaveOutThePrecompiled>();
  }
  bool ParseArgs(const clang::CompilerInstance& /*compiler*/, const std::vector<std::string>& /*arguments*/) override {
    return true;
  }
  ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<Action> kAction("own-declarations", "leaves out what is precompiled");

}  // namespace
