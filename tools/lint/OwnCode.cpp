// Keeps the static analysis to this project's own code. By itself it walks through every header
// of the system, too, for each file anew, and throws away what it finds there: two thirds of its
// time.
#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>
#include <memory>
#include <string>
#include <vector>

namespace {

struct OwnCodeOnly : clang::ASTConsumer {
    void HandleTranslationUnit(clang::ASTContext& context) override {
        const clang::SourceManager& sources = context.getSourceManager();
        std::vector<clang::Decl*> own;
        for (clang::Decl* declaration : context.getTranslationUnitDecl()->noload_decls())
            if (!sources.isInSystemHeader(sources.getExpansionLoc(declaration->getLocation())))
                own.push_back(declaration);
        context.setTraversalScope(own);
    }
};

/// Runs ahead of the checks, whatever they are.
struct OwnCodeAction : clang::PluginASTAction {
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&,
                                                          llvm::StringRef) override {
        return std::make_unique<OwnCodeOnly>();
    }
    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override { return true; }
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<OwnCodeAction> added("own-code",
                                                              "looks at the project's own code only");

} // namespace
