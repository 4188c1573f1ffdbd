#pragma once

/// Prints what the tool is for and the commands that it lists, to standard output.
void printUsage();
