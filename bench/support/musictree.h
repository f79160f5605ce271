// Makes a tree of music files for the benchmarks: 100,000 files in 7,000 directories, most with a tag.
#pragma once

#include <string>

// Makes the tree below the directory unless it is there already; returns the tree's root.
std::string musicTree(const std::string& directory);
