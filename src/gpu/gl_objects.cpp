// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/gl_objects.h"

#include "gpu/gl_debug.h"
#include "platform/bitmap_font.h"
#include "platform/gl_surface.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

namespace ogl {

namespace {

struct ReleasedName {
    GLKind kind;
    unsigned name;
    unsigned maker; ///< number of the context that it was made in
};

/// Whether the current context may delete an object. One of the host's own has other objects by
/// these numbers, and so may our others have framebuffers. Programs are shared, but Mesa (22.3)
/// crashes in the next draw of a context that used a program which another one deleted; a context
/// that is gone uses none.
bool isDeletableHere(const ReleasedName& object) {
    const unsigned current = currentContextNumber();
    switch (object.kind) {
    case GLKind::Framebuffer:
        return object.maker == current;
    case GLKind::Program:
        return current != 0 && (object.maker == current || !isContextOpen(object.maker));
    default:
        return current != 0;
    }
}

/// Whether an object has gone without being deleted.
bool wentWithItsContext(const ReleasedName& object) {
    return object.kind == GLKind::Framebuffer && !isContextOpen(object.maker);
}

/// All names of the contexts that there are.
struct Registry {
    unsigned generation = 0;
    int live[kGLKindCount] = {};
    std::vector<ReleasedName> released;
};

Registry& registry() {
    static Registry instance;
    if (std::exchange(instance.generation, contextGeneration()) != contextGeneration()) {
        std::fill(std::begin(instance.live), std::end(instance.live), 0);
        instance.released.clear();
    }
    return instance;
}

int openViews = 0;

int& liveCount(GLKind kind) {
    return registry().live[static_cast<int>(kind)];
}

unsigned createName(GLKind kind) {
    unsigned name = kNoName;
    switch (kind) {
    case GLKind::Buffer:
        glGenBuffers(1, &name);
        break;
    case GLKind::Texture:
        glGenTextures(1, &name);
        break;
    case GLKind::Renderbuffer:
        glGenRenderbuffers(1, &name);
        break;
    case GLKind::Framebuffer:
        glGenFramebuffers(1, &name);
        break;
    case GLKind::Program:
        name = glCreateProgram();
        break;
    case GLKind::VertexShader:
        name = glCreateShader(GL_VERTEX_SHADER);
        break;
    case GLKind::FragmentShader:
        name = glCreateShader(GL_FRAGMENT_SHADER);
        break;
    case GLKind::FontLists:
        if (const unsigned first = glGenLists(kFontListCount))
            name = first;
        break;
    }
    return name;
}

void deleteName(const ReleasedName& object) {
    switch (object.kind) {
    case GLKind::Buffer:
        glDeleteBuffers(1, &object.name);
        break;
    case GLKind::Texture:
        glDeleteTextures(1, &object.name);
        break;
    case GLKind::Renderbuffer:
        glDeleteRenderbuffers(1, &object.name);
        break;
    case GLKind::Framebuffer:
        glDeleteFramebuffers(1, &object.name);
        break;
    case GLKind::Program:
        glDeleteProgram(object.name);
        break;
    case GLKind::VertexShader:
    case GLKind::FragmentShader:
        glDeleteShader(object.name);
        break;
    case GLKind::FontLists:
        glDeleteLists(object.name, kFontListCount);
        break;
    }
}

} // namespace

template <GLKind kind> bool GLObject<kind>::exists() const {
    return name_ != kNoName && generation_ == contextGeneration();
}

template <GLKind kind> void GLObject<kind>::create() {
    if (exists())
        return;
    name_ = createName(kind);
    generation_ = contextGeneration();
    maker_ = currentContextNumber();
    if (exists())
        ++liveCount(kind);
}

template <GLKind kind> void GLObject<kind>::reset() {
    const unsigned name = std::exchange(name_, kNoName);
    if (name == kNoName || generation_ != contextGeneration())
        return;
    --liveCount(kind);
    const ReleasedName object{kind, name, maker_};
    if (isDeletableHere(object))
        deleteName(object);
    else
        registry().released.push_back(object);
}

template class GLObject<GLKind::Buffer>;
template class GLObject<GLKind::Texture>;
template class GLObject<GLKind::Renderbuffer>;
template class GLObject<GLKind::Framebuffer>;
template class GLObject<GLKind::Program>;
template class GLObject<GLKind::VertexShader>;
template class GLObject<GLKind::FragmentShader>;
template class GLObject<GLKind::FontLists>;

void deleteReleasedObjects() {
    std::erase_if(registry().released, [](const ReleasedName& object) {
        if (wentWithItsContext(object))
            return true;
        if (!isDeletableHere(object))
            return false;
        deleteName(object);
        return true;
    });
}

int liveObjects(GLKind kind) {
    return liveCount(kind);
}

void reportLiveObjects() {
    if (!debugRequested())
        return;
    constexpr const char* kNames[kGLKindCount] = {"buffers",          "textures",  "renderbuffers",
                                                  "framebuffers",     "programs",  "vertex shaders",
                                                  "fragment shaders", "font lists"};
    for (int kind = 0; kind < kGLKindCount; ++kind)
        if (registry().live[kind] != 0)
            std::fprintf(stderr, "ogl: left over: %d %s\n", registry().live[kind], kNames[kind]);
}

void viewOpened() {
    ++openViews;
}

void viewClosed() {
    deleteReleasedObjects();
    if (--openViews == 0) // else what lives may be in use by the views that are still open
        reportLiveObjects();
}

GLWork& glWork() {
    static GLWork work;
    return work;
}

} // namespace ogl
