// The Python module nvxcomputation: open a KRN or RSV file (or new defaults),
// read and set keys as "SECTION.Key" with Python types, export and import a
// dict, and write KRN and RSV files. Values cross as the text of the key text
// functions, so the module takes and gives exactly what nvxparam does.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "GuardedLoad.h"
#include "GuardedRun.h"
#include "ParamFile.h"
#include "core/KeyText.h"

namespace py = pybind11;
using nvxpy::BadValue;
using nvxpy::ParamFile;

namespace {

// The key's value as int, float or bool where its kind has one; as the text
// form otherwise (texts, output-time lists, composite keys).
py::object ToPython(const nvx::Key& key) {
  const std::string text = nvx::FormatValue(key);
  char* end = nullptr;
  switch (key.kind) {
    case nvx::KeyKind::kInt: {
      const long long v = std::strtoll(text.c_str(), &end, 10);
      if (!text.empty() && *end == '\0') return py::int_(v);
      break;
    }
    case nvx::KeyKind::kDouble: {
      const double v = std::strtod(text.c_str(), &end);
      if (!text.empty() && *end == '\0') return py::float_(v);
      break;
    }
    case nvx::KeyKind::kBool:
      return py::bool_(text == "1" || text == "true");
    default:
      break;
  }
  return py::str(text);
}

bool Numeric(nvx::KeyKind kind) {
  return kind == nvx::KeyKind::kInt || kind == nvx::KeyKind::kDouble ||
         kind == nvx::KeyKind::kBool || kind == nvx::KeyKind::kTimes;
}

// The text form of a Python value for `key`; refuses types the key cannot take.
std::string ToText(const nvx::Key& key, py::handle value) {
  const std::string name = key.name;
  const std::string type = py::str(py::type::handle_of(value).attr("__name__"));
  const bool text = key.kind == nvx::KeyKind::kText || key.kind == nvx::KeyKind::kWideText;
  if (py::isinstance<py::str>(value)) return value.cast<std::string>();
  if (py::isinstance<py::bool_>(value)) {
    if (key.kind == nvx::KeyKind::kBool || key.kind == nvx::KeyKind::kInt) {
      return value.cast<bool>() ? "1" : "0";
    }
  } else if (py::isinstance<py::int_>(value)) {
    if (!text) return py::str(value);
  } else if (py::isinstance<py::float_>(value)) {
    if (key.kind == nvx::KeyKind::kDouble || key.kind == nvx::KeyKind::kCustom) {
      if (!std::isfinite(value.cast<double>())) {
        throw BadValue(std::string(py::repr(value)) + " is not a finite number for " + name);
      }
      // repr is the shortest text that reads back as the same double.
      return py::repr(value);
    }
    if (Numeric(key.kind)) throw BadValue(name + " takes a whole number, not a float");
  }
  throw BadValue(name + " cannot take a value of type " + type + (text ? " (it takes a str)" : ""));
}

py::dict ToDict(const ParamFile& params) {
  py::dict dict;
  for (const std::string& section : params.Sections()) {
    for (const std::string& key : params.Keys(section)) {
      const std::string address = section + "." + key;
      dict[py::str(address)] = ToPython(params.Find(address));
    }
  }
  return dict;
}

void Update(ParamFile& params, const py::dict& values) {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const auto& [name, value] : values) {
    if (!py::isinstance<py::str>(name)) throw BadValue("keys are \"SECTION.Key\" strings");
    const std::string address = name.cast<std::string>();
    texts.emplace_back(address, ToText(params.Lookup(address), value));
  }
  params.Update(texts);
}

}  // namespace

PYBIND11_MODULE(nvxcomputation, m) {
  m.doc() =
      "Computation parameters of a 3D injection-molding project: the KRN file the\n"
      "solvers read and the parameter tables of the project's RSV file.";

  py::register_exception_translator([](std::exception_ptr p) {
    try {
      if (p) std::rethrow_exception(p);
    } catch (const nvxpy::UnknownName& e) {
      PyErr_SetString(PyExc_KeyError, e.what());
    } catch (const BadValue& e) {
      PyErr_SetString(PyExc_ValueError, e.what());
    } catch (const nvxpy::FileError& e) {
      PyErr_SetString(e.missing() ? PyExc_FileNotFoundError : PyExc_OSError, e.what());
    }
  });

  py::class_<ParamFile>(m, "Params",
                        "The parameters of one file. Keys are addressed as \"SECTION.Key\".")
      .def(
          "get", [](const ParamFile& p, const std::string& name) { return ToPython(p.Find(name)); },
          py::arg("name"),
          "The value of \"SECTION.Key\": int, float or bool where the key has that type, "
          "else its text form (texts, output-time lists as \"N: t1, t2\").")
      .def(
          "set",
          [](ParamFile& p, const std::string& name, py::handle value) {
            p.Set(name, ToText(p.Lookup(name), value));
          },
          py::arg("name"), py::arg("value"),
          "Sets \"SECTION.Key\" from an int, float, bool or the key's text form; a section "
          "not held is added. ValueError leaves the value as it was.")
      .def("to_dict", &ToDict, "Every key of every section held, as {\"SECTION.Key\": value}.")
      .def("update", &Update, py::arg("values"),
           "Sets every \"SECTION.Key\": value of the dict, or none of them.")
      .def("sections", &ParamFile::Sections, "Names of the sections held, in tag order.")
      .def("keys", &ParamFile::Keys, py::arg("section"),
           "Names of the keys of a section that can be read and set, in file order.")
      .def(
          "write_krn",
          [](ParamFile& p, const std::filesystem::path& path) { p.WriteKrn(path.string()); },
          py::arg("path"),
          "Writes a KRN file with every section held; the old file is replaced only "
          "once the new one is complete.")
      .def(
          "write_rsv",
          [](ParamFile& p, const std::filesystem::path& path) { p.WriteRsv(path.string()); },
          py::arg("path"),
          "Writes the parameter tables into an RSV file (created when missing; an existing "
          "one keeps its other contents and is replaced only once the write succeeded).");

  m.def(
      "load_krn",
      [](const std::filesystem::path& path) { return ParamFile::LoadKrn(path.string()); },
      py::arg("path"), "Reads a KRN file.");
  m.def(
      "load_rsv",
      [](const std::filesystem::path& path, bool guarded, int timeLimit) {
        if (timeLimit < 1 || timeLimit > static_cast<int>(nvxparam::guarded::kMaxSeconds)) {
          throw BadValue("time_limit is a whole number of seconds from 1 to " +
                         std::to_string(nvxparam::guarded::kMaxSeconds) + ", not " +
                         std::to_string(timeLimit));
        }
        if (!guarded) return ParamFile::LoadRsv(path.string());
        return nvxpy::LoadRsvGuarded(path.string(), static_cast<unsigned>(timeLimit));
      },
      py::arg("path"), py::arg("guarded") = true,
      py::arg("time_limit") = static_cast<int>(nvxparam::guarded::kDefaultSeconds),
      "Reads the parameter tables of an RSV file. By default the file is read in a child "
      "process stopped after time_limit seconds, so that a damaged file that crashes or hangs "
      "the HDF5 library raises OSError(\"corrupt or unreadable RSV file: PATH\") instead of "
      "ending the interpreter; guarded=False reads it in this process.");
  m.def("new", &ParamFile::New, py::arg("model_kind") = 2, py::arg("analysis_type") = 0,
        "The defaults of a new project: model_kind 1 shell, 2 or 3 solid; analysis_type 0 "
        "to 14. A per-user template, when there is one, is the starting point.");
}
