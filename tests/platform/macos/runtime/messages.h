// SPDX-License-Identifier: MIT
#pragma once

extern "C" {

/// Sends a message; cast it to the type of the method before the call. That of `objc_msgSend_stret` returns a
/// structure which is too large for registers.
void objc_msgSend();
void objc_msgSend_stret();
void objc_msgSendSuper2();
void objc_msgSendSuper2_stret();
}
