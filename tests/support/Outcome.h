#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// A row of a table: what it is about, a text, and what comes of it.
struct TextCase
{
  const char* what;
  std::string text, expected;
};

/// The text of the exception that an action throws; empty if it throws none.
template <class Action>
std::string errorOf(Action action)
{
  try
  {
    action();
  }
  catch (const std::exception& e)
  {
    return e.what();
  }
  return "";
}

/// What an action writes to std::cout. It must not throw.
template <class Action>
std::string outputOf(Action action)
{
  std::ostringstream out;
  std::streambuf* const before = std::cout.rdbuf(out.rdbuf());
  action();
  std::cout.rdbuf(before);
  return out.str();
}

/// A new folder for the files of a test; it goes when the program ends.
inline std::string newFolder()
{
  static struct Folders : std::vector<std::string>
  {
    ~Folders()
    {
      std::for_each(begin(), end(), [](auto& f) { std::filesystem::remove_all(f); });
    }
  } folders;
  std::string name = "/tmp/orvex-test-XXXXXX";
  return folders.emplace_back(mkdtemp(name.data()));
}

/// Writes a file. \return its path
inline std::string writeFile(const std::string& path, const std::string& contents)
{
  std::ofstream(path, std::ios_base::binary) << contents;
  return path;
}
