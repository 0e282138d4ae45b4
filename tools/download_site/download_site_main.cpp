// download_site --root DIR [--port N] [--port-file FILE]
// Serves DIR over plain HTTP on 127.0.0.1 until SIGINT or SIGTERM. With --port 0 (the default)
// a free port is taken; --port-file receives its number once the site answers, so that a
// script can wait for the file and read it.
#include <signal.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>

#include "download_site.h"

namespace {

struct Options {
  std::filesystem::path root;
  int port = 0;
  std::filesystem::path portFile;
};

[[noreturn]] void usage() {
  std::fprintf(stderr, "usage: download_site --root DIR [--port N] [--port-file FILE]\n");
  std::exit(2);
}

Options readOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (i + 1 >= argc) usage();
    if (a == "--root")
      options.root = argv[++i];
    else if (a == "--port")
      options.port = std::atoi(argv[++i]);
    else if (a == "--port-file")
      options.portFile = argv[++i];
    else
      usage();
  }
  if (options.root.empty()) usage();
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = readOptions(argc, argv);
  // The signals are taken by sigwait below, on this thread alone: block them before the
  // server's thread starts, so that it inherits the mask.
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGINT);
  sigaddset(&stopSignals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
  try {
    orv::DownloadSite site(options.root, options.port,
                           [](const std::string& method, const std::string& path, int status) {
                             std::printf("%s %s %d\n", method.c_str(), path.c_str(), status);
                             std::fflush(stdout);
                           });
    std::printf("download_site: serving %s at %s\n", options.root.c_str(), site.url().c_str());
    std::fflush(stdout);
    if (!options.portFile.empty()) {
      const std::filesystem::path part = options.portFile.string() + ".part";
      std::ofstream(part) << site.port() << '\n';
      std::filesystem::rename(part, options.portFile);
    }
    int signal = 0;
    sigwait(&stopSignals, &signal);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "%s\n", e.what());
    return 1;
  }
  return 0;
}
