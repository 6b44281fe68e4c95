// SPDX-License-Identifier: MIT
// rewrite_json: reads a JSON document from standard input and writes it in our layout to standard output.
// The status is 1, and the output the reader's sentence, if it is not accepted.
#include "json/json_text.h"

#include <cstdio>
#include <iostream>
#include <iterator>
#include <string>

int main()
{
    const std::string document{std::istreambuf_iterator<char>(std::cin), {}};
    const auto parsed = chimewell::parseJSON(document);
    const std::string output = parsed ? chimewell::writeJSON(*parsed) : parsed.error().message;
    std::fwrite(output.data(), 1, output.size(), stdout);
    return parsed ? 0 : 1;
}
