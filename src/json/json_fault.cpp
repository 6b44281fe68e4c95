// SPDX-License-Identifier: MIT
#include "json/json_fault.h"

namespace chimewell {

std::string_view message(JSONFault fault)
{
    switch (fault) {
    case JSONFault::none:
        break;
    case JSONFault::unexpectedEnd:
        return "unexpected end of input";
    case JSONFault::invalidLiteral:
        return "invalid literal";
    case JSONFault::keyExpected:
        return "expected string key in object";
    case JSONFault::colonExpected:
        return "expected ':' after key";
    case JSONFault::unterminatedObject:
        return "unterminated object";
    case JSONFault::objectSeparatorExpected:
        return "expected ',' or '}' in object";
    case JSONFault::unterminatedArray:
        return "unterminated array";
    case JSONFault::arraySeparatorExpected:
        return "expected ',' or ']' in array";
    case JSONFault::unterminatedString:
        return "unterminated string";
    case JSONFault::unterminatedEscape:
        return "unterminated escape";
    case JSONFault::invalidEscape:
        return "invalid escape \\";
    case JSONFault::truncatedUnicodeEscape:
        return "truncated \\u escape";
    case JSONFault::invalidHexDigit:
        return "invalid hex digit in \\u escape";
    case JSONFault::missingNumber:
        return "invalid number";
    case JSONFault::numberWithoutDigit:
        return "invalid number ";
    case JSONFault::trailingContent:
        return "trailing content after top-level value";
    }
    return {};
}

}
