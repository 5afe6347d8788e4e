// What a user means by a path that was typed or pasted.
#pragma once

#include <string>

// Removes blanks and a pair of quotes around a path and decodes a file:// address; ~/ becomes the
// user's home folder.
std::string CleanPath(const std::string& path);
