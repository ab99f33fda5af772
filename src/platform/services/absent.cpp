#include "platform/services/absent.h"

#include "base/failure.h"

namespace platform {

namespace {

class NoFolderDialog : public FolderDialog {
 public:
  std::optional<std::string> Browse(const std::string&, const std::string&) override {
    return std::nullopt;
  }
};

class NoPrinters : public Printers {
 public:
  std::vector<std::string> Names() const override { return {}; }
  std::string Current() const override { throw Failure(failure::NoPrinter); }
  void MakeCurrent(std::int32_t) override { throw Failure(failure::NoPrinter); }
};

/// Whatever begins a page on it fails at once.
class NoPaper : public PrintSurface {
 public:
  void Orientation(PageOrientation) override { throw Failure(failure::NoPrinter); }
  void Colours(ColourMode) override {}
  void DocumentName(const std::string&) override {}
  void FontName(const std::string&) override {}
  void FontSize(float) override {}
  void FontBold(bool) override {}
  void FontUnderline(bool) override {}
  void ForeColor(Rgb) override {}
  void CurrentX(double) override {}
  void CurrentY(double) override {}
  void Print(const std::string&) override {}
  void PrintLine(const std::string&) override {}
  double TextWidth(const std::string&) const override { return 0; }
  void PaintPicture(const Picture&, double, double, double, double) override {}
  void EndDoc(std::function<void(const SentPage&)>) override { throw Failure(failure::NoPrinter); }
};

class NoPointer : public MousePointer {
 public:
  void ShowHourglass() override {}
  void ShowNormal() override {}
};

class NoInhibitor : public SleepInhibitor {
 public:
  void Inhibit(const std::string&) override {}
  void Release() override {}
};

template <typename Service, typename None>
Service& Given(Service* given) {
  // It has nothing that could change, so that one of them is enough for all.
  static None none;
  return given != nullptr ? *given : none;
}

}  // namespace

FolderDialog& OrNone(FolderDialog* given) {
  return Given<FolderDialog, NoFolderDialog>(given);
}
Printers& OrNone(Printers* given) {
  return Given<Printers, NoPrinters>(given);
}
PrintSurface& OrNone(PrintSurface* given) {
  return Given<PrintSurface, NoPaper>(given);
}
MousePointer& OrNone(MousePointer* given) {
  return Given<MousePointer, NoPointer>(given);
}
SleepInhibitor& OrNone(SleepInhibitor* given) {
  return Given<SleepInhibitor, NoInhibitor>(given);
}

}  // namespace platform
