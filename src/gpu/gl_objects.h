// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <cstdint>
#include <utility>

namespace ogl {

/// Name of a GL object that is not created yet.
inline constexpr unsigned kNoName = 0xffffffffu;

enum class GLKind : int {
    Buffer,
    Texture,
    Renderbuffer,
    Framebuffer,
    Program,
    VertexShader,
    FragmentShader,
    FontLists, ///< kFontListCount display lists, named by the first
};
inline constexpr int kGLKindCount = 8;

/// Owner of one GL object name. A host may hand batches back while no context is current, or after
/// the view that they were made in is gone; so a name that is released without one of our contexts
/// waits until deleteReleasedObjects(), and one whose contexts are all gone is forgotten, since its
/// number may belong to another object by then. Framebuffers and programs belong to the context
/// that they were made in, and wait until it is current again; they are to be used in no other.
template <GLKind kind> class GLObject {
  public:
    GLObject() = default;
    ~GLObject() { reset(); }
    GLObject(GLObject&& other) noexcept
        : name_(std::exchange(other.name_, kNoName)), generation_(other.generation_),
          maker_(other.maker_) {}
    GLObject& operator=(GLObject&& other) noexcept {
        std::swap(name_, other.name_);
        std::swap(generation_, other.generation_);
        std::swap(maker_, other.maker_);
        return *this;
    }
    GLObject(const GLObject&) = delete;
    GLObject& operator=(const GLObject&) = delete;

    /// Makes a name in the current context unless there is one.
    void create();
    /// Deletes the object; nothing when there is none.
    void reset();

    /// Whether there is an object, in the contexts that there are now.
    bool exists() const;
    unsigned name() const { return name_; }

  private:
    unsigned name_ = kNoName;
    unsigned generation_ = 0; ///< of the contexts that share it
    unsigned maker_ = 0;      ///< number of the context that it was made in
};

extern template class GLObject<GLKind::Buffer>;
extern template class GLObject<GLKind::Texture>;
extern template class GLObject<GLKind::Renderbuffer>;
extern template class GLObject<GLKind::Framebuffer>;
extern template class GLObject<GLKind::Program>;
extern template class GLObject<GLKind::VertexShader>;
extern template class GLObject<GLKind::FragmentShader>;
extern template class GLObject<GLKind::FontLists>;
using GLBuffer = GLObject<GLKind::Buffer>;
using GLTexture = GLObject<GLKind::Texture>;
using GLRenderbuffer = GLObject<GLKind::Renderbuffer>;
using GLFramebuffer = GLObject<GLKind::Framebuffer>;
using GLProgram = GLObject<GLKind::Program>;
using GLVertexShader = GLObject<GLKind::VertexShader>;
using GLFragmentShader = GLObject<GLKind::FragmentShader>;
using GLFontLists = GLObject<GLKind::FontLists>;

/// Deletes the objects that were released while no context of theirs was current. Called as a frame
/// starts.
void deleteReleasedObjects();

/// Objects of a kind that exist now.
int liveObjects(GLKind kind);

/// Says on standard error which GL objects are left, when OGL_DEBUG=1 is set.
void reportLiveObjects();

/// Called as a view has made its context, and as it is about to delete it, which should be current
/// still. Closing deletes released objects; closing the last view reports what is left.
void viewOpened();
void viewClosed();

/// Counts of work handed to GL since the program started.
struct GLWork {
    uint64_t drawCalls = 0;
    uint64_t uploads = 0; ///< buffers filled
};
GLWork& glWork();

} // namespace ogl
