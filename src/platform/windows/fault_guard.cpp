// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What __try and __except do, which GCC does not have. A vectored handler would be C++ alone, but
// it is asked first, also about what the guarded code handles by itself; this one is asked in the
// order of the stack's frames.
#include "platform/fault_guard.h"

extern "C" int ogl_run_guarded(void (*step)(void* data), void* data);

#if defined(__i386__)

// The frame, from %ebp down: %ebx, %esi, %edi, and the registration that the system's list of
// handlers, at %fs:0, links to: the handler and the registration before.
asm(R"(
        .text
        .p2align 4
        .globl _ogl_run_guarded
_ogl_run_guarded:
        pushl   %ebp
        movl    %esp, %ebp
        pushl   %ebx
        pushl   %esi
        pushl   %edi
        pushl   $ogl_guard_handler
        pushl   %fs:0
        movl    %esp, %fs:0
        andl    $-16, %esp
        subl    $12, %esp
        pushl   12(%ebp)
        call    *8(%ebp)
        movl    $1, %eax
ogl_guard_leave:
        movl    -20(%ebp), %ecx
        movl    %ecx, %fs:0
        movl    -12(%ebp), %edi
        movl    -8(%ebp), %esi
        movl    -4(%ebp), %ebx
        leave
        ret

        # (record, registration, context, dispatcher's context)
        .p2align 4
ogl_guard_handler:
        movl    4(%esp), %eax
        testl   $6, 4(%eax)             # frames are being unwound, this one with them
        jz      1f
        movl    $1, %eax                # the search goes on
        ret
1:      movl    8(%esp), %ecx
        leal    20(%ecx), %ebp          # the one register that survives the call
        pushl   $0
        pushl   %eax
        pushl   $0
        pushl   %ecx
        call    _RtlUnwind@16           # of the frames above
        leal    -20(%ebp), %esp
        xorl    %eax, %eax
        jmp     ogl_guard_leave
)");

#elif defined(__x86_64__)

asm(R"(
        .text
        .p2align 4
        .globl ogl_run_guarded
        .def ogl_run_guarded; .scl 2; .type 32; .endef
        .seh_proc ogl_run_guarded
ogl_run_guarded:
        pushq   %rbp
        .seh_pushreg %rbp
        movq    %rsp, %rbp
        .seh_setframe %rbp, 0
        subq    $32, %rsp
        .seh_stackalloc 32
        .seh_endprologue
        movq    %rcx, %rax
        movq    %rdx, %rcx
ogl_guard_begin:
        call    *%rax
        nop
ogl_guard_end:
        movl    $1, %eax
        jmp     ogl_guard_leave
ogl_guard_faulted:
        xorl    %eax, %eax
ogl_guard_leave:
        addq    $32, %rsp
        popq    %rbp
        ret
        .seh_handler __C_specific_handler, @except
        .seh_handlerdata
        .long   1                       # scope: from, to, every exception, goes on at
        .rva    ogl_guard_begin
        .rva    ogl_guard_end
        .long   1
        .rva    ogl_guard_faulted
        .text
        .seh_endproc
)");

#else
#error "no structured exceptions on this processor"
#endif

namespace ogl {

bool runGuarded(void (*step)(void* data), void* data) {
    return ogl_run_guarded(step, data) != 0;
}

} // namespace ogl
