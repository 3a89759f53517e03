#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace ostrand {

// Where pugixml writes to when it shall become a text.
class StringWriter : public pugi::xml_writer {
 public:
  void write(const void* data, std::size_t size) override {
    std::string_view piece(static_cast<const char*>(data), size);
    // pugixml writes a carriage return as it is, and every reader would take it for a line end.
    for (std::size_t at; (at = piece.find('\r')) != piece.npos; piece.remove_prefix(at + 1)) text.append(piece, 0, at) += "&#13;";
    text += piece;
  }

  std::string text;
};

}  // namespace ostrand
