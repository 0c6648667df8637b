// SPDX-License-Identifier: MIT
// What the About window, the site's browser window and the posting log show.
#include "shell/small_windows.h"

#include "platform/schemes.h"
#include "shell/product.h"
#include "shell/windows.h"

namespace requite {

frmAbout::frmAbout(Windows& windows)
    : ProgramWindow(windows, "frmAbout", "About " + std::string(product::kName)),
      lblProduct("lblProduct", std::string(product::kName)),
      lblVersion("lblVersion", std::string(product::kVersion)),
      lblCompany("lblCompany", std::string(product::kCompany)),
      lblWebsite("lblWebsite", std::string(product::kSite)) {
  lblWebsite.OnClick = [this] { Others.Show("frmWebsite"); };
  for (Control* each : std::initializer_list<Control*>{&lblProduct, &lblVersion, &lblCompany, &lblWebsite}) {
    Controls.Add(*each);
  }
}

frmWebsite::frmWebsite(Windows& windows, std::string address, std::function<void()> onUnload)
    : ProgramWindow(windows, "frmWebsite", std::string(product::kSite)),
      address_(std::move(address)),
      onUnload_(std::move(onUnload)) {
  Controls.Add(WebBrowser1);
}

void frmWebsite::Load() {
  PutHttpInFront(address_, scheme_sign::kAny);
  WebBrowser1.Navigate(address_);
}

void frmWebsite::Unload() { onUnload_(); }

Form5::Form5(Windows& windows) : ProgramWindow(windows, "Form5", "Posting Log") { Controls.Add(Text4); }

void Form5::Count(bool answered) {
  ++sent_;
  if (answered) ++answered_;
  lblAnswers.SetText(std::to_string(answered_) + " of " + std::to_string(sent_) +
                     (sent_ == 1 ? " request" : " requests") + " answered");
}

}  // namespace requite
