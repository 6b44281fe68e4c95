// SPDX-License-Identifier: MIT
// What it costs to start a program at all.

int main()
{
    return 0;
}
