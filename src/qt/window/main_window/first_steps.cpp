// SPDX-License-Identifier: MIT
// Lays out the three buttons and does what they say by the window's own commands.
#include "qt/window/main_window/first_steps.h"

#include <QEvent>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "platform/text.h"
#include "qt/services/code_page.h"
#include "shell/imports/form4.h"

namespace requite {
namespace {

constexpr std::string_view kSample = "/sample.prj";

/// "www.mysite.example" of "http://www.mysite.example/links.html".
std::string HostOf(const std::string& url) {
  const std::size_t scheme = url.find("://");
  const std::size_t begin = scheme == std::string::npos ? 0 : scheme + 3;
  return url.substr(begin, url.find('/', begin) - begin);
}

}  // namespace

FirstSteps::FirstSteps(Form1& form, const UserEvents& user, QTableView& results)
    : QFrame(&results), form_(form), user_(user) {
  setObjectName("firstSteps");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* const layout = new QVBoxLayout(this);
  auto* const words = new QLabel(tr("See who links back to your site."), this);
  QFont large = words->font();
  large.setPointSizeF(large.pointSizeF() * 1.3);
  words->setFont(large);
  layout->addStretch();
  layout->addWidget(words, 0, Qt::AlignHCenter);
  const auto add = [&](const QString& caption, const QString& name, const QString& toolTip,
                       void (FirstSteps::*step)()) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    connect(button, &QPushButton::clicked, this,
            [this, step] { user_.Run([this, step] { (this->*step)(); }); });
    return button;
  };
  add(tr("Type my site"), "firstType", tr("Add your own site, then the sites that ought to link back"),
      &FirstSteps::TypeSite);
  add(tr("Import the links on my page..."), "firstImport",
      tr("Read the sites that you link to from your own page of links"), &FirstSteps::ImportLinkPage);
  add(tr("Open the sample project"), "firstSample", tr("Look around in a project with made-up sites"),
      &FirstSteps::OpenSample)
      ->setVisible(FileExists(SamplePath()));
  layout->addStretch();
  results.installEventFilter(this);
  setGeometry(results.rect());
  Follow();
}

std::string FirstSteps::SamplePath() const {
  return form_.Folder.File(std::string(kProjectFilesFolder) + std::string(kSample));
}

void FirstSteps::Follow() {
  setVisible(form_.Sites.List4.Empty() && form_.Sites.List3.Empty() && !form_.State.Scanning);
}

bool FirstSteps::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QFrame::eventFilter(watched, event);
}

void FirstSteps::TypeSite() { window()->findChild<QLineEdit*>("txtDomain")->setFocus(); }

void FirstSteps::ImportLinkPage() {
  bool accepted = false;
  const QString page = QInputDialog::getText(
      this, tr("Import the links on my page"),
      tr("The address of your own page with links to other sites:\n(such as www.mysite.example/links.html)"),
      QLineEdit::Normal, {}, &accepted);
  const std::string url = FromUnicode(page.trimmed());
  const std::string host = HostOf(url);
  if (!accepted || host.empty() || form_.Closed()) return;
  // The links are added to a Main Site, so the page's own site becomes one.
  form_.txtDomain.SetText(host);
  form_.cmdAdd2.Click();
  form_.cmdImport.Click();
  if (auto* const import = static_cast<Form4*>(form_.Windows.Find("Form4"))) import->Text1.SetText(url);
}

void FirstSteps::OpenSample() { form_.Files.LoadProject(SamplePath()); }

}  // namespace requite
