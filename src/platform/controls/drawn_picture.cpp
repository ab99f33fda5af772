#include "platform/controls/drawn_picture.h"

#include <utility>

namespace platform {

void DrawnPicture::Tools::Take(const Call& call) {
  if (const auto* scale = std::get_if<draw_call::Scale>(&call)) Scale = *scale;
  if (const auto* fore = std::get_if<draw_call::ForeColor>(&call)) ForeColor = fore->Colour;
  if (const auto* style = std::get_if<draw_call::DrawStyle>(&call)) Style = style->Style;
  if (const auto* width = std::get_if<draw_call::DrawWidth>(&call)) Width = width->Width;
}

void DrawnPicture::Clear() {
  for (const Call& call : calls_) before_.Take(call);
  calls_.clear();
  Changed();
}

void DrawnPicture::Add(Call call) {
  calls_.push_back(std::move(call));
  Changed();
}

}  // namespace platform
