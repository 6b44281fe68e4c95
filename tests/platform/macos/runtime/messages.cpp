// SPDX-License-Identifier: MIT
#include "runtime/abi.h"
#include "runtime/classes.h"

#include <cstdio>
#include <cstdlib>

using namespace chimewell::objc;

namespace {

Implementation require(const Object* receiver, const Class* type, Selector name)
{
    if (const Implementation found = findMethod(type, name)) return found;
    const bool ofClass = isMetaclass(*receiver->isa);
    std::fprintf(stderr, "%c[%s %s]: unrecognized selector\n", ofClass ? '+' : '-', type->data->name, name);
    std::abort();
}

}

extern "C" {

Implementation chimewell_method(const Object* receiver, Selector name)
{
    return require(receiver, receiver->isa, name);
}

/// A message to `super` names the receiver and the class whose code sends it.
struct SuperReceiver {
    Object* receiver;
    Class* sender;
};

Implementation chimewell_super_method(const SuperReceiver* super, Selector name)
{
    return require(super->receiver, super->sender->superclass, name);
}
}

// A message send must not touch an argument, whatever the method's signature: every register that may hold
// one (System V calling convention) is kept while the method is looked up. Then the method is jumped to, so
// that it returns straight to the sender. A method that returns a large structure has the structure's address
// as its first argument, and the receiver as its second.
asm(R"(
.macro KEEP_ARGUMENTS
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    subq $192, %rsp
    movq %rdi, 0(%rsp)
    movq %rsi, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %rcx, 24(%rsp)
    movq %r8, 32(%rsp)
    movq %r9, 40(%rsp)
    movq %rax, 48(%rsp)
    movaps %xmm0, 64(%rsp)
    movaps %xmm1, 80(%rsp)
    movaps %xmm2, 96(%rsp)
    movaps %xmm3, 112(%rsp)
    movaps %xmm4, 128(%rsp)
    movaps %xmm5, 144(%rsp)
    movaps %xmm6, 160(%rsp)
    movaps %xmm7, 176(%rsp)
.endm

.macro RESTORE_ARGUMENTS
    movq %rax, %r11
    movq 0(%rsp), %rdi
    movq 8(%rsp), %rsi
    movq 16(%rsp), %rdx
    movq 24(%rsp), %rcx
    movq 32(%rsp), %r8
    movq 40(%rsp), %r9
    movq 48(%rsp), %rax
    movaps 64(%rsp), %xmm0
    movaps 80(%rsp), %xmm1
    movaps 96(%rsp), %xmm2
    movaps 112(%rsp), %xmm3
    movaps 128(%rsp), %xmm4
    movaps 144(%rsp), %xmm5
    movaps 160(%rsp), %xmm6
    movaps 176(%rsp), %xmm7
    leave
    .cfi_def_cfa %rsp, 8
.endm

.macro BEGIN name
    .globl \name
    .type \name, @function
    .p2align 4
\name:
    .cfi_startproc
.endm

.macro END name
    jmpq *%r11
    .cfi_endproc
    .size \name, . - \name
.endm

.text

BEGIN objc_msgSend
    testq %rdi, %rdi
    jz 1f
    KEEP_ARGUMENTS
    callq chimewell_method
    RESTORE_ARGUMENTS
    jmpq *%r11
1:  xorl %eax, %eax
    xorl %edx, %edx
    xorps %xmm0, %xmm0
    xorps %xmm1, %xmm1
    retq
    .cfi_endproc
    .size objc_msgSend, . - objc_msgSend

BEGIN objc_msgSend_stret
    KEEP_ARGUMENTS
    movq %rsi, %rdi
    movq %rdx, %rsi
    callq chimewell_method
    RESTORE_ARGUMENTS
END objc_msgSend_stret

BEGIN objc_msgSendSuper2
    KEEP_ARGUMENTS
    callq chimewell_super_method
    RESTORE_ARGUMENTS
    movq (%rdi), %rdi
END objc_msgSendSuper2

BEGIN objc_msgSendSuper2_stret
    KEEP_ARGUMENTS
    movq %rsi, %rdi
    movq %rdx, %rsi
    callq chimewell_super_method
    RESTORE_ARGUMENTS
    movq (%rsi), %rsi
END objc_msgSendSuper2_stret
)");
