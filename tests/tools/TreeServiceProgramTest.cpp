#include "LoopbackServer.h"
#include "Outcome.h"
#include "service/TreeJson.h"
#include "tree/NewickReader.h"
#include "tree/Tree.h"

#include <gmock/gmock.h>

#include <boost/process.hpp>

#include <csignal>

namespace
{

namespace process = boost::process;

std::string textOf(process::ipstream& stream)
{
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

TEST(TreeServiceProgram, ServesTheTreesOfItsFolderUntilASignal)
{
  using orvex::test::written;
  const std::string home = orvex::test::newFolder(); // with a file that must not be served
  const std::string trees = home + "/trees";
  boost::filesystem::create_directory(trees);
  written(home + "/outside.nwk", "(secret,b);");
  written(trees + "/a.b.TRE", std::string(20000, '(') + "deep" + std::string(20000, ')'));
  written(trees + "/0.nwk", "no tree");
  written(trees + "/note.txt", "(no,tree)");
  written(trees + "/b.nwk", "((a:1,\"\xff:2)x,c);");
  boost::filesystem::create_symlink("../outside.nwk", trees + "/link.nwk");
  for (const int signal : {SIGINT, SIGTERM})
  {
    const int port = LoopbackServer().port;
    process::ipstream out, err;
    process::child program(ORVEX_TREE_SERVICE_PROGRAM, "--port", std::to_string(port), trees,
                           process::std_out > out, process::std_err > err);
    std::string line;
    std::getline(out, line);
    ASSERT_EQ(line, "serving 2 trees at http://127.0.0.1:" + std::to_string(port) + "/trees");
    httplib::Client client("127.0.0.1", port);
    EXPECT_EQ(client.Get("/trees")->body, "[{\"id\":2,\"treeName\":\"a.b\"},"
                                          "{\"id\":3,\"treeName\":\"b\"}]");
    EXPECT_EQ(client.Get("/trees/3")->body,
              R"({"root":{"name":"","children":[{"name":"x","children":[)"
              R"({"name":"a","children":[]},{"name":"\")"
              "\xef\xbf\xbd"
              R"(","children":[]}]},{"name":"c","children":[]}]}})");
    const auto deep = orvex::NewickReader()(trees + "/a.b.TRE");
    EXPECT_TRUE(client.Get("/trees/2")->body == orvex::service::toJson(*deep));
    for (const char* path :
         {"/", "/trees/", "/trees/1", "/trees/4", "/trees/02", "/trees/-1", "/trees/../outside.nwk",
          "/trees/%2e%2e%2foutside.nwk", "/trees/b.nwk", "/trees/3%00"})
    {
      const auto answer = client.Get(path);
      EXPECT_EQ(answer->status, 404) << path;
      EXPECT_THAT(answer->body, testing::MatchesRegex("\\{\"error\":\".+\"\\}"));
    }
    EXPECT_EQ(client.Post("/trees")->status, 405);
    EXPECT_EQ(client.Get("/trees/3", {{"Range", "bytes=0-,0-"}})->status, 416);
    boost::filesystem::rename(trees + "/b.nwk", home + "/away");
    EXPECT_EQ(client.Get("/trees/3")->status, 500);
    boost::filesystem::rename(home + "/away", trees + "/b.nwk");

    kill(program.id(), signal);
    program.wait();
    EXPECT_EQ(program.exit_code(), 0);
    EXPECT_THAT(
        textOf(err),
        testing::AllOf(testing::HasSubstr("0.nwk is left out: it holds no tree"),
                       testing::HasSubstr("link.nwk is left out: it leads out of the folder")));
  }
}

TEST(TreeServiceProgram, SaysInOneLineWhyItDoesNotStart)
{
  httplib::Server other;
  const std::string taken = std::to_string(other.bind_to_any_port("127.0.0.1"));
  for (const std::string& arguments :
       {std::string(), std::string("/tmp /tmp"), std::string("--port"), "--port " + taken + " /tmp",
        std::string("--port 0 /tmp"), std::string("--port 65536 /tmp"),
        std::string("--port 80x /tmp"), std::string("--verbose /tmp"),
        std::string("/tmp/missing/folder"), std::string("/etc/passwd")})
  {
    process::ipstream err;
    EXPECT_EQ(process::system(ORVEX_TREE_SERVICE_PROGRAM " " + arguments, process::std_err > err),
              1);
    EXPECT_THAT(textOf(err), testing::MatchesRegex("orvex-tree-service: [^\n]+\n")) << arguments;
  }
}

} // namespace
