#include "LoopbackServer.h"
#include "foundation/Http.h"
#include "service/TreeJson.h"
#include "tree/NewickReader.h"
#include "tree/TemporaryFolder.h"
#include "tree/Tree.h"

#include <gmock/gmock.h>

#include <boost/process.hpp>

#include <csignal>

namespace
{

namespace process = boost::process;

/// A folder of trees beside a file that must not be served.
class TreeServiceProgram : public testing::Test
{
protected:
  TreeServiceProgram()
  {
    setenv("no_proxy", "*", 1);
    _home.write("outside.nwk", "(secret,b);");
    _home.write("trees/a.b.TRE", std::string(20000, '(') + "deep" + std::string(20000, ')'));
    _home.write("trees/0.nwk", "no tree");
    _home.write("trees/note.txt", "(no,tree)");
    writeSmallTree();
    boost::filesystem::create_symlink("../outside.nwk", _home.path("trees/link.nwk"));
  }

  std::string writeSmallTree() const { return _home.write("trees/b.nwk", "((a:1,\"\xff:2)x,c);"); }
  std::string folder() const { return _home.path("trees"); }
  static process::child start(const std::vector<std::string>& arguments, process::ipstream& out,
                              process::ipstream& err)
  {
    return process::child(ORVEX_TREE_SERVICE_PROGRAM, process::args(arguments),
                          process::std_out > out, process::std_err > err);
  }

private:
  orvex::test::TemporaryFolder _home;
};

std::string download(const std::string& url)
{
  std::ostringstream stream;
  Kelmar::Network::Http(url).download(&stream, 10000);
  return stream.str();
}

TEST_F(TreeServiceProgram, ServesTheTreesOfItsFolderUntilASignal)
{
  for (const int signal : {SIGINT, SIGTERM})
  {
    const std::string port = std::to_string(LoopbackServer().port());
    const std::string url = "http://127.0.0.1:" + port;
    process::ipstream out, err;
    process::child program = start({"--port", port, folder()}, out, err);
    std::string line;
    std::getline(out, line);
    ASSERT_EQ(line, "serving 2 trees at " + url + "/trees");

    EXPECT_EQ(download(url + "/trees"), "[{\"id\":2,\"treeName\":\"a.b\"},"
                                        "{\"id\":3,\"treeName\":\"b\"}]");
    EXPECT_EQ(download(url + "/trees/3"),
              R"({"root":{"name":"","children":[{"name":"x","children":[)"
              R"({"name":"a","children":[]},{"name":"\")"
              "\xef\xbf\xbd"
              R"(","children":[]}]},{"name":"c","children":[]}]}})");
    const auto deep = orvex::NewickReader()(folder() + "/a.b.TRE");
    EXPECT_TRUE(download(url + "/trees/2") == orvex::service::toJson(*deep));
    httplib::Client client("127.0.0.1", std::stoi(port));
    for (const char* path :
         {"/", "/trees/", "/trees/1", "/trees/4", "/trees/02", "/trees/-1", "/trees/../outside.nwk",
          "/trees/%2e%2e%2foutside.nwk", "/trees/b.nwk", "/trees/3%00"})
    {
      SCOPED_TRACE(path);
      const auto answer = client.Get(path);
      EXPECT_EQ(answer->status, 404);
      EXPECT_THAT(answer->body, testing::MatchesRegex("\\{\"error\":\".+\"\\}"));
    }
    EXPECT_EQ(client.Post("/trees")->status, 405);
    const httplib::Headers ranges{{"Range", "bytes=0-,0-"}};
    EXPECT_EQ(client.Get("/trees/3", ranges)->status, 416);
    boost::filesystem::remove(writeSmallTree());
    EXPECT_EQ(client.Get("/trees/3")->status, 500);
    writeSmallTree();

    kill(program.id(), signal);
    program.wait();
    EXPECT_EQ(program.exit_code(), 0);
    const std::string warnings(std::istreambuf_iterator<char>(err), {});
    EXPECT_THAT(warnings, testing::HasSubstr("0.nwk is left out: it holds no tree"));
    EXPECT_THAT(warnings, testing::HasSubstr("link.nwk is left out: it leads out of the folder"));
  }
}

TEST_F(TreeServiceProgram, SaysInOneLineWhyItDoesNotStart)
{
  httplib::Server other;
  const std::string taken = std::to_string(other.bind_to_any_port("127.0.0.1"));
  const std::string trees = folder();
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {trees, trees},
                                             {"--port"},
                                             {"--port", "0", trees},
                                             {"--port", "65536", trees},
                                             {"--port", "80x", trees},
                                             {"--port", taken, trees},
                                             {"--verbose", trees},
                                             {trees + "/missing"},
                                             {trees + "/b.nwk"}})
  {
    SCOPED_TRACE(testing::PrintToString(arguments));
    process::ipstream out, err;
    process::child program = start(arguments, out, err);
    program.wait();
    EXPECT_EQ(program.exit_code(), 1);
    const std::string text(std::istreambuf_iterator<char>(err), {});
    EXPECT_THAT(text, testing::MatchesRegex("orvex-tree-service: [^\n]+\n"));
  }
}

} // namespace
