#pragma once

#include "tree/model/TreeSize.h"

#include <cstddef>
#include <string_view>

namespace orvex
{

/// What the tree service's answer to the request for one tree becomes, told from its text before
/// that is parsed.
struct JsonSize
{
  /// Bytes of memory that the parsed values take, without the text.
  std::size_t valueBytes = 0;
  TreeSize tree;
};

/// Goes once over the text. What is no JSON has some size too.
JsonSize sizeOfJson(std::string_view text);

} // namespace orvex
