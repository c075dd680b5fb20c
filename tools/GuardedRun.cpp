// What the child process of RunGuarded does on every system.
#include "GuardedRun.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <new>

#include "ParamFiles.h"

namespace nvxparam {
namespace guarded {

int ChildStatus(const std::function<int()>& work) {
  int status = 0;
  try {
    status = work();
  } catch (const std::bad_alloc&) {
    status = kFailed + 1;  // the memory limit: reported by the parent
  } catch (const Failure& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
    status = e.status;
  } catch (const std::exception& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
    status = kFailed;
  }
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
  return status;
}

}  // namespace guarded
}  // namespace nvxparam
