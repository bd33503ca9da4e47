#include "tool/graph/Graphviz.h"

#include <dlfcn.h>
#include <graphviz/cgraph.h>
#include <graphviz/gvc.h>

#include <memory>
#include <type_traits>

#include "tool/ExitStatus.h"

namespace vexpa_tool {

namespace {

[[noreturn]] void Fail(const std::string& what) {
    throw ToolError(kReadOrWriteError, "--svg: " + what);
}

// A shared library that stays loaded: what it starts may end with the process only.
class Library {
public:
    explicit Library(const char* name) : handle_(dlopen(name, RTLD_NOW | RTLD_LOCAL)) {
        if (handle_ == nullptr) Fail("Graphviz is not installed: " + std::string(dlerror()));
    }

    template <class Function>
    Function* Find(const char* name) const {
        void* found = dlsym(handle_, name);
        if (found == nullptr) Fail("this Graphviz has no " + std::string(name));
        return reinterpret_cast<Function*>(found);
    }

private:
    void* handle_;
};

}  // namespace

// The names of the libraries carry the versions whose headers this is compiled with.
std::string DrawSvg(const std::string& dot) {
    const Library cgraph(VEXPA_CGRAPH_LIBRARY), gvc(VEXPA_GVC_LIBRARY);
    const auto newContext = gvc.Find<decltype(gvContext)>("gvContext");
    const auto freeContext = gvc.Find<decltype(gvFreeContext)>("gvFreeContext");
    const auto layout = gvc.Find<decltype(gvLayout)>("gvLayout");
    const auto freeLayout = gvc.Find<decltype(gvFreeLayout)>("gvFreeLayout");
    const auto render = gvc.Find<decltype(gvRenderData)>("gvRenderData");
    const auto freeRendered = gvc.Find<decltype(gvFreeRenderData)>("gvFreeRenderData");
    const auto readGraph = cgraph.Find<decltype(agmemread)>("agmemread");
    const auto closeGraph = cgraph.Find<decltype(agclose)>("agclose");

    const std::unique_ptr<GVC_t, decltype(freeContext)> context(newContext(), freeContext);
    const std::unique_ptr<Agraph_t, decltype(closeGraph)> graph(readGraph(dot.c_str()), closeGraph);
    if (!context || !graph || layout(context.get(), graph.get(), "dot") != 0) Fail("cannot be drawn");
    const auto endLayout = [&](Agraph_t* laidOut) { freeLayout(context.get(), laidOut); };
    const std::unique_ptr<Agraph_t, decltype(endLayout)> laidOut(graph.get(), endLayout);
    char* bytes = nullptr;
    unsigned size = 0;
    if (render(context.get(), graph.get(), "svg", &bytes, &size) != 0) Fail("cannot be drawn");
    const std::unique_ptr<char, decltype(freeRendered)> owned(bytes, freeRendered);
    return {bytes, size};
}

}  // namespace vexpa_tool
