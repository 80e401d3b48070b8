// Jet export: exports every record of the 10,000-row sample-list fixture to
// CSV with `kvdao jet export` and with mdbtools' `mdb-export` (the baseline),
// each as a whole process writing to /dev/null, alternating runs. Prints the
// median times, their ratio, and each program's peak resident memory (from
// the children's resource usage). Also exports the 100-row fixture with
// kvdao, to show that memory does not grow with the number of records.
//
// Usage: jet_export_bench [database.mdb] [runs] (default: the shared fixture, 5)

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Run {
  double seconds = 0.0;
  double cpu_seconds = 0.0;  // user + system
  long peak_kb = 0;
  int status = -1;
};

// Runs argv with standard output to /dev/null; times it and reads its peak RSS.
Run Execute(const std::vector<std::string>& args) {
  std::vector<char*> argv;
  for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
  argv.push_back(nullptr);
  auto start = std::chrono::steady_clock::now();
  pid_t pid = fork();
  if (pid == 0) {
    int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    dup2(null, STDERR_FILENO);
    execvp(argv[0], argv.data());
    _exit(127);
  }
  Run run;
  int status = 0;
  struct rusage usage {};
  wait4(pid, &status, 0, &usage);
  run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  run.peak_kb = usage.ru_maxrss;
  run.cpu_seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                    static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  std::string fixtures = KVDAO_JET_FIXTURES;
  std::string database = argc > 1 ? argv[1] : fixtures + "/analysis-10k.mdb";
  int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
  const std::string kvdao = KVDAO_CLI_PATH;

  std::vector<std::string> ours = {kvdao, "jet", "export", database, "ANALYSIS", "--format", "csv", "--no-progress"};
  std::vector<std::string> baseline = {"mdb-export", database, "ANALYSIS"};

  std::vector<double> our_times, baseline_times, our_cpu, baseline_cpu;
  long our_peak = 0, baseline_peak = 0;
  for (int i = 0; i < runs; ++i) {
    Run a = Execute(ours);
    Run b = Execute(baseline);
    if (a.status != 0 || b.status != 0) {
      std::fprintf(stderr, "jet_export_bench: a run failed (kvdao %d, mdb-export %d)\n", a.status, b.status);
      return 1;
    }
    our_times.push_back(a.seconds);
    baseline_times.push_back(b.seconds);
    our_cpu.push_back(a.cpu_seconds);
    baseline_cpu.push_back(b.cpu_seconds);
    our_peak = std::max(our_peak, a.peak_kb);
    baseline_peak = std::max(baseline_peak, b.peak_kb);
  }
  double ours_s = Median(our_times), baseline_s = Median(baseline_times);
  std::printf("database        %s\n", database.c_str());
  double ours_cpu = Median(our_cpu), baseline_cpu_s = Median(baseline_cpu);
  std::printf("kvdao export    %8.3f s wall  %8.3f s cpu   peak %6ld KB\n", ours_s, ours_cpu, our_peak);
  std::printf("mdb-export      %8.3f s wall  %8.3f s cpu   peak %6ld KB\n", baseline_s, baseline_cpu_s, baseline_peak);
  std::printf("speed-up        %8.1fx wall, %.1fx cpu (medians of %d runs; target >= 5x)\n", baseline_s / ours_s,
              baseline_cpu_s / ours_cpu, runs);

  std::vector<std::string> small = ours;
  small[3] = fixtures + "/analysis-100.mdb";
  Run few = Execute(small);
  if (few.status == 0) {
    std::printf("kvdao peak for 100 records %ld KB vs 10,000 records %ld KB\n", few.peak_kb, our_peak);
  }
  return 0;
}
