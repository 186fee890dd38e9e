// The addresses of files (RFC 8089).
#pragma once

#include <QByteArray>
#include <string>
#include <string_view>

#include "base/PathSyntax.h"

namespace tarnwell::ui {

// Every byte of the path that is no plain letter goes in percent form, so that names that are no
// UTF-8 come through whole.
QByteArray UriOfPath(std::string_view path,
                     const base::PathSyntax& syntax = base::PathSyntax::Native());

// The path that a file's address names; empty for anything else, and for files of other computers
// where the syntax has no path to them.
std::string PathOfUri(QByteArrayView uri,
                      const base::PathSyntax& syntax = base::PathSyntax::Native());

}  // namespace tarnwell::ui
