// What the program tells of itself.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::shell {

inline constexpr std::string_view CopyrightLine = "Copyright \u00A9 2026 Tarnwell contributors";
inline constexpr std::string_view TrademarkLine =
    "Names of other products are trademarks of their owners.";

// The two parts of the license, which stands whole in the file LICENSE.
inline constexpr std::string_view License =
    "MIT License\r\n\r\n"
    "Copyright (c) 2026 Tarnwell contributors\r\n\r\n"
    "Permission is hereby granted, free of charge, to any person obtaining a copy of this software "
    "and associated documentation files (the \"Software\"), to deal in the Software without "
    "restriction, including without limitation the rights to use, copy, modify, merge, publish, "
    "distribute, sublicense, and/or sell copies of the Software, and to permit persons to whom the "
    "Software is furnished to do so, subject to the following conditions:\r\n\r\n"
    "The above copyright notice and this permission notice shall be included in all copies or "
    "substantial portions of the Software.";
inline constexpr std::string_view Disclaimer =
    "THE SOFTWARE IS PROVIDED \"AS IS\", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR IMPLIED, "
    "INCLUDING BUT NOT LIMITED TO THE WARRANTIES OF MERCHANTABILITY, FITNESS FOR A PARTICULAR "
    "PURPOSE AND NONINFRINGEMENT. IN NO EVENT SHALL THE AUTHORS OR COPYRIGHT HOLDERS BE LIABLE FOR "
    "ANY CLAIM, DAMAGES OR OTHER LIABILITY, WHETHER IN AN ACTION OF CONTRACT, TORT OR OTHERWISE, "
    "ARISING FROM, OUT OF OR IN CONNECTION WITH THE SOFTWARE OR THE USE OR OTHER DEALINGS IN THE "
    "SOFTWARE.";

inline constexpr std::string_view Acknowledgement =
    "The tables of small and capital letters are made from the Unicode Character Database, "
    "\u00A9 Unicode, Inc., under the Unicode License.";

}  // namespace tarnwell::shell
