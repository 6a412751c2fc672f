// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "model/Program.h"

/// The program file by means of pugixml, in the way its own manual works with trees.
namespace bench {

/// Texts as they stand, with entities decoded: what Halvex's reader gives.
inline constexpr unsigned PugiOptions = pugi::parse_cdata | pugi::parse_escapes;

/// The bytes must hold a program.
TCBase::Program ReadProgramByPugi(std::string_view bytes);
std::string WriteProgramByPugi(const TCBase::Program& program);

std::string WriteByPugi(const pugi::xml_document& document);

}  // namespace bench
