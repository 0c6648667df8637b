// SPDX-License-Identifier: MIT
// The web view over pages of a server in this process: what is loaded when, and what pages are not given.
#include <signal.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <map>
#include <set>

#include "qt/web/page_address.h"
#include "qt/web/web_view_holder.h"
#include "support/fakes.h"

namespace requite::test {

constexpr int kPatience = 20'000;  // milliseconds; pages take a hundredth of it
constexpr int kLongEnough = 300;   // milliseconds for what must not happen

/// Answers each path with a page given beforehand, and remembers what was asked for.
class PageServer {
 public:
  PageServer() {
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
      QTcpSocket* const socket = server_.nextPendingConnection();
      ++Connections;
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { Answer(*socket); });
    });
    if (!server_.listen(QHostAddress::LocalHost)) qFatal("no port to listen at");
  }
  std::string Host() const { return "127.0.0.1:" + std::to_string(server_.serverPort()); }
  std::string Url(const QByteArray& path) const { return "http://" + Host() + path.toStdString(); }

  std::map<QByteArray, QByteArray> Pages;
  std::map<QByteArray, QByteArray> Moved;  ///< paths that are answered with another one
  int Connections = 0;
  QByteArray Headers = "Content-Type: text/html\r\n";
  std::set<QByteArray> Asked;

 private:
  void Answer(QTcpSocket& socket) {
    const QByteArray path = socket.readAll().split(' ').value(1);
    Asked.insert(path);
    if (Moved.contains(path)) {
      socket.write("HTTP/1.1 302 Found\r\nLocation: " + Moved[path] + "\r\nConnection: close\r\n\r\n");
      return socket.disconnectFromHost();
    }
    const bool known = Pages.contains(path);
    socket.write((known ? "HTTP/1.1 200 OK\r\n" : "HTTP/1.1 404 Not Found\r\n") + Headers +
                 "Connection: close\r\n\r\n" + (known ? Pages[path] : "<title>none</title>"));
    socket.disconnectFromHost();
  }

  QTcpServer server_;
};

bool EngineIsLoaded() {
  QFile maps("/proc/self/maps");
  return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("WebEngine");
}

/// The parent of a process, or 0.
qint64 ParentOf(qint64 process) {
  QFile file(QString("/proc/%1/stat").arg(process));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QByteArray stat = file.readAll();
  return stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(1).toLongLong();
}

/// Kills the processes that draw pages: those at the ends of the tree below this process's own children, from
/// which they are forked. False when there are none.
bool KillRenderers() {
  std::set<qint64> ends;
  std::set<qint64> parents;
  for (const QString& entry : QDir("/proc").entryList(QDir::Dirs)) {
    const qint64 process = entry.toLongLong();
    qint64 ancestor = ParentOf(process);
    parents.insert(ancestor);
    while (ancestor > 1 && ParentOf(ancestor) != QCoreApplication::applicationPid())
      ancestor = ParentOf(ancestor);
    if (ancestor > 1) ends.insert(process);
  }
  bool killed = false;
  for (const qint64 process : ends) {
    if (!parents.contains(process)) killed |= kill(static_cast<pid_t>(process), SIGKILL) == 0;
  }
  return killed;
}

class WebViewTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    folder_ = std::make_unique<QTemporaryDir>();
    control_ = std::make_unique<BrowserView>("WebBrowser1");
    control_->OnDocumentComplete = [this] { locations_.push_back(control_->LocationUrl()); };
    locations_.clear();
    MakeHolder(REQUITE_WEB_MODULE_FILE);
    server_ = std::make_unique<PageServer>();
    server_->Pages["/page"] = "<title>a page</title>";
  }
  void cleanup() {
    holder_.reset();
    control_.reset();
    server_.reset();
  }

  // First: nothing takes the library out of the process again.
  void nothingIsLoadedBeforeTheFirstShowAndTheLastAddressIsTakenThen() {
    control_->Navigate(server_->Url("/earlier"));
    control_->Navigate(server_->Url("/page"));
    QTest::qWait(kLongEnough);
    QVERIFY(!EngineIsLoaded());
    QVERIFY(server_->Asked.empty());
    holder_->show();
    QTRY_COMPARE_WITH_TIMEOUT(Title(), QString("a page"), kPatience);
    QVERIFY(EngineIsLoaded());
    QTRY_COMPARE_WITH_TIMEOUT(locations_, std::vector{server_->Url("/page")}, kPatience);
    QVERIFY(!server_->Asked.contains("/earlier"));
  }

  void scriptsDoNotRun() {
    server_->Pages["/page"] =
        "<title>still</title><script>document.title='ran';new Image().src='/ran'</script>"
        "<noscript><img src='/without-scripts'></noscript>";
    Show(server_->Url("/page"));
    QTRY_VERIFY_WITH_TIMEOUT(server_->Asked.contains("/without-scripts"), kPatience);
    QCOMPARE(Title(), QString("still"));
    QVERIFY(!server_->Asked.contains("/ran"));
  }

  void noPageBringsALocalFileOnShow() {
    const QByteArray secret = File("secret.html", "<title>secret</title>");
    const QByteArray leap = "<meta http-equiv=refresh content='0;url=file://" + secret + "'>";
    server_->Pages["/page"] =
        "<title>remote</title>" + leap + "<iframe src='file://" + secret + "'></iframe>";
    Show(server_->Url("/page"));
    QTest::qWait(kLongEnough);
    QCOMPARE(Title(), QString("remote"));
    // The report repeats what remote pages say.
    Show(File("report.html", "<title>report</title>" + leap).toStdString());
    QTest::qWait(kLongEnough);
    QCOMPARE(Title(), QString("report"));
    Show(secret.toStdString());  // the program itself may
    QCOMPARE(Title(), QString("secret"));
  }

  void aReportWithMarkupInItsAddressesIsShownWholeAndStays() {
    const QByteArray url = QByteArray::fromStdString(server_->Url("/leap"));
    server_->Moved["/last"] = "/page";
    for (const QByteArray& address :
         {"http://a/<meta http-equiv=refresh content=\"0;url=" + url + "\">",
          QByteArray("<style>*{display:none}"), QByteArray("<plaintext>"), QByteArray("<!--"),
          QByteArray("<title>"), QByteArray("<textarea>"), QByteArray("'><iframe src=http://a/><a href='"),
          "<link rel=preconnect href='" + url + "'>",
          "<link rel=stylesheet href=" + url + "><body background=" + url + ">", "<base href=" + url + ">"}) {
      // With and without a scheme: of the two links of an entry, one has none.
      const QByteArray last =
          (address.startsWith('<') ? "" : "http://") + QByteArray::fromStdString(server_->Host()) + "/last";
      const QByteArray report =
          File("report.html",
               "<html>\r\n<head>\r\n<title>Reciprocal Link Report</title>\r\n<body>\r\n"
               "<h1>Main Site Specific Overviews</h1>\r\n<h3>a</h3>\r\nStatus: Direct Link<BR>"
               "Found On: <a href='" +
                   address + "'>" + address + "</a><BR><BR>Site: <a href='" + last + "'>" + last +
                   "</a><BR><BR>\r\n");
      const int before = server_->Connections;
      Show(report.toStdString());
      QTest::qWait(kLongEnough);
      QVERIFY2(Title() == "Reciprocal Link Report" && locations_.back() == report.toStdString(), address);
      QVERIFY2(server_->Connections == before, address);
      // The last link can be reached only where nothing has swallowed it.
      ChooseLastLink();
      QTRY_VERIFY2_WITH_TIMEOUT(control_->LocationUrl() == server_->Url("/page"), address, kPatience);
      control_->GoBack();
      QTRY_COMPARE_WITH_TIMEOUT(Title(), QString("Reciprocal Link Report"), kPatience);
      QTRY_COMPARE_WITH_TIMEOUT(control_->LocationUrl(), report.toStdString(), kPatience);
    }
    File("report.html", "<html>\r\n<head>\r\n<title>Reciprocal Link Report</title>\r\n<title>anew");
    const std::size_t before = locations_.size();
    control_->Refresh();
    QTRY_COMPARE_WITH_TIMEOUT(locations_.size(), before + 1, kPatience);
    QCOMPARE(locations_.back(), folder_->filePath("report.html").toStdString());
  }

  void aLocalPageIsLeftOnlyWhenTheUserAsks() {
    const QByteArray url = QByteArray::fromStdString(server_->Url("/leap"));
    const QByteArray moved = QByteArray::fromStdString(server_->Url("/moved"));
    server_->Moved["/moved"] = "/page";
    for (const QByteArray& leap :
         {"<meta http-equiv=refresh content='0;url=" + url + "'>",
          "<link rel=preconnect href='" + url + "'><link rel=prefetch href='" + url + "'><object data='" +
              url + "'></object><iframe src='" + url + "'></iframe><video poster='" + url + "' src='" + url +
              "'></video><img src='" + url + "'>"}) {
      Show(File("local.html", "<title>local</title>" + leap + "<a href='" + moved + "'>x</a>").toStdString());
      QTest::qWait(kLongEnough);
      QVERIFY2(locations_.back() == folder_->filePath("local.html").toStdString(), leap);
      QVERIFY2(Title() == "local" && server_->Connections == 0, leap);
    }
    ChooseLastLink();
    QTRY_COMPARE_WITH_TIMEOUT(Title(), QString("a page"), kPatience);
    control_->GoBack();
    QTRY_COMPARE_WITH_TIMEOUT(Title(), QString("local"), kPatience);
    QVERIFY_EXCEPTION_THROWN(control_->GoBack(), RuntimeFailure);
    Show(moved.toStdString());
    QCOMPARE(Title(), QString("a page"));
  }

  void aDownloadIsRefusedAndTold() {
    Show(server_->Url("/page"));
    server_->Headers = "Content-Type: application/zip\r\nContent-Disposition: attachment; filename=x.zip\r\n";
    server_->Pages["/file"] = "zip";
    control_->Navigate(server_->Url("/file"));
    QTRY_VERIFY_WITH_TIMEOUT(Label("webLine")->text().contains("download"), kPatience);
    QVERIFY(Label("webLine")->isVisible());
    QTest::qWait(kLongEnough);
    QVERIFY(!QFile::exists(QDir::homePath() + "/x.zip") &&
            !QFile::exists(QDir::homePath() + "/Downloads/x.zip"));
    QCOMPARE(Title(), QString("a page"));
    server_->Headers = "Content-Type: text/html\r\n";
    Show(server_->Url("/page"));
    QVERIFY(!Label("webLine")->isVisible());
  }

  void aCrashedRendererIsToldAndThePageComesBack() {
    Show(server_->Url("/page"));
    QVERIFY(KillRenderers());
    auto* const again = holder_->findChild<QPushButton*>("webAgain");
    QTRY_VERIFY_WITH_TIMEOUT(again->isVisible(), kPatience);
    QCOMPARE(Label("webNoticeTitle")->text(), QString("This page has crashed."));
    const std::size_t before = locations_.size();
    QTest::mouseClick(again, Qt::LeftButton);
    QTRY_COMPARE_WITH_TIMEOUT(locations_.size(), before + 1, kPatience);
    QVERIFY(!again->isVisible() && View()->isVisible());
  }

  void aPageThatCannotBeShownIsToldAndTheNextOneComes() {
    Show(server_->Url("/page"));
    const std::string nobody = "http://127.0.0.1:1/";
    control_->Navigate(nobody);
    QTRY_VERIFY_WITH_TIMEOUT(Label("webNotice")->isVisible(), kPatience);
    QVERIFY(Label("webNotice")->text().contains("127.0.0.1:1"));
    QCOMPARE(locations_.back(), nobody);
    control_->GoBack();
    QTRY_VERIFY_WITH_TIMEOUT(View()->isVisible(), kPatience);
    QCOMPARE(Title(), QString("a page"));
    for (const char* refused : {"chrome://crash", "javascript:alert(1)", "/no/such/file"}) {
      control_->Navigate(refused);
      QVERIFY2(Label("webNotice")->isVisible(), refused);
      Show(server_->Url("/page"));
      QVERIFY2(View()->isVisible(), refused);
    }
  }

  void stopAtOnceLeavesNothingBusy() {
    Show(server_->Url("/page"));
    control_->Navigate(server_->Url("/page"));
    control_->Stop();
    QTest::qWait(kLongEnough);
    QVERIFY(!holder_->findChild<QWidget*>("webProgress")->isVisible());
  }

  void withoutTheLibraryPagesAreShownAsTextAndThatIsSaid() {
    MakeHolder(folder_->filePath("no-such-library.so"));
    Show(File("report.html", "<p>The words</p>").toStdString());
    QVERIFY(Label("webLine")->isVisible());
    QVERIFY(Label("webLine")->text().contains("not installed"));
    QVERIFY(View()->property("plainText").toString().contains("The words"));
    // Rich text with so many tables within tables overflows the stack.
    QByteArray tables;
    for (int i = 0; i < 20'000; ++i) tables += "<table><tr><td>";
    Show(File("tables.html", tables + "<style>in<b>side</b>").toStdString());
    QCOMPARE(View()->property("plainText").toString(), QString("inside"));
    Show(File("long.html", "<p>" + QByteArray(3 << 20, 'x')).toStdString());
    const QString shown = View()->property("plainText").toString();
    QVERIFY(shown.size() < (2 << 20) && shown.endsWith("too long.]"));
    services_.Internet.Bodies["http://partner.example/"] = "<p>Partner</p>";
    Show("partner.example/");
    QVERIFY(View()->property("plainText").toString().contains("Partner"));
  }

  void addressesAreReadAsTheyAreMeant() {
    const std::map<std::string, std::string> meant{
        {"", "about:blank"},
        {"partner.example/a b", "http://partner.example/a%20b"},
        {"partner.example:8080/x", "http://partner.example:8080/x"},
        {"HTTPS://x.example/", "https://x.example/"},
        {"x.example/?u=http://y", "http://x.example/?u=http://y"},
        {"/a folder/50%25.html", "/a folder/50%25.html"},
        {"mailto:a@b.example", "-"},
        {"javascript:alert(1)", "-"},
        {"view-source:http://x", "-"},
        {"http://", "-"}};
    for (const auto& [address, url] : meant) {
      const auto found = UrlOfAddress(address);
      QVERIFY2((found ? AddressOfUrl(*found) : "-") == url, address.c_str());
    }
  }

 private:
  void MakeHolder(const QString& module) {
    holder_.reset();
    holder_ = std::make_unique<WebViewHolder>(*control_, services_.Internet, guard_, nullptr, module);
    holder_->resize(600, 400);
  }
  /// Waits until the page is told complete.
  void Show(const std::string& address) {
    const std::size_t before = locations_.size();
    control_->Navigate(address);
    holder_->show();
    QTRY_VERIFY_WITH_TIMEOUT(locations_.size() > before, kPatience);
  }
  void ChooseLastLink() {
    holder_->activateWindow();
    View()->setFocus();
    QTest::keyClick(View()->focusProxy(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(View()->focusProxy(), Qt::Key_Return);
  }
  QByteArray File(const QString& name, const QByteArray& text) {
    QFile file(folder_->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) qFatal("no file");
    return QFile::encodeName(file.fileName());
  }
  QWidget* View() const { return holder_->focusProxy(); }
  QString Title() const { return View() == nullptr ? QString() : View()->property("title").toString(); }
  QLabel* Label(const char* name) const { return holder_->findChild<QLabel*>(name); }

  const EventGuard guard_{[](const RuntimeFailure& failure) { qFatal("%s", failure.what()); }};
  FakeServices services_;
  std::unique_ptr<QTemporaryDir> folder_;
  std::unique_ptr<PageServer> server_;
  std::unique_ptr<BrowserView> control_;
  std::unique_ptr<WebViewHolder> holder_;
  std::vector<std::string> locations_;
};

}  // namespace requite::test

int main(int argc, char** argv) {
  requite::PrepareWebEngine();
  QApplication application(argc, argv);
  requite::test::WebViewTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "web_view_test.moc"
