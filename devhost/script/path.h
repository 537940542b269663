// Names of script files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace devhost::script {

// The path that a file's text means by `path`: relative ones start at that file's folder. "." and ".." are worked out,
// so that a file has one path however it is included.
std::string ResolvePath(std::string_view includingFile, std::string_view path);

// Where included files are looked for that do not stand beside the file that includes them: the folders of TALQ_PATH,
// with ';' between them, then "examples" beside the program.
std::vector<std::string> IncludeFolders();

}  // namespace devhost::script
