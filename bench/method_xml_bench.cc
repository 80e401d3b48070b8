// Method records to XML and back: writes 1,000 records with WriteXML into
// one document, serialises it, parses it and reads every record back with
// ReadXML. The baseline builds the same 348,000-element document directly
// with pugixml from value texts prepared in advance, serialises, parses and
// walks it, reading every id and value. The two documents must be the same
// text. Prints both times and their ratio.
//
// Usage: method_xml_bench [records] (default 1000)

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "kvdao/method/method_record.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Result {
  double seconds;
  std::string xml;
  long long check;
};

std::vector<kvdao::CMethodRecord> MakeRecords(int count) {
  std::vector<kvdao::CMethodRecord> records(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    kvdao::CMethodRecord& record = records[static_cast<std::size_t>(i)];
    record.SetName("Compound " + std::to_string(i));
    record.SetQuanTrace(std::to_string(100 + i) + ".1>" + std::to_string(50 + i % 40) + ".0");
    record.SetPredRT(1.0f + 0.01f * static_cast<float>(i));
    record.SetStdConc(0.5 * i);
    record.SetMassIntData(std::to_string(100 + i) + ",100\n" + std::to_string(101 + i) + ",40");
    record.SetRCalc(i % 2);
    record.SetIStd(0, i % 7);
  }
  return records;
}

Result RunLibrary(const std::vector<kvdao::CMethodRecord>& records) {
  auto start = Clock::now();
  kvdao::XmlBuilder builder;
  builder.AddDeclaration();
  builder.Open("METHOD");
  for (const auto& record : records) record.WriteXML(builder);
  builder.Close();
  std::string xml = builder.ToString();

  pugi::xml_document document;
  document.load_buffer(xml.data(), xml.size());
  long long check = 0;
  for (pugi::xml_node element : document.document_element().children("METHODRECORD")) {
    kvdao::CMethodRecord record;
    record.ReadXML(element);
    check += record.GetRecord().IStd[0] + static_cast<long long>(record.GetName().size());
  }
  double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return {seconds, std::move(xml), check};
}

Result RunBaseline(const std::vector<std::vector<std::string>>& values) {
  auto start = Clock::now();
  pugi::xml_document built;
  pugi::xml_node declaration = built.append_child(pugi::node_declaration);
  declaration.append_attribute("version") = "1.0";
  pugi::xml_node root = built.append_child("METHOD");
  for (const auto& record : values) {
    pugi::xml_node element = root.append_child("METHODRECORD");
    for (int id = 0; id < kvdao::MDF_Count; ++id) {
      pugi::xml_node parameter = element.append_child("PARAMETER");
      parameter.append_attribute("id") = id;
      parameter.append_attribute("value") = record[static_cast<std::size_t>(id)].c_str();
    }
  }
  std::string xml;
  {
    struct Writer : pugi::xml_writer {
      std::string* text;
      void write(const void* data, std::size_t size) override {
        text->append(static_cast<const char*>(data), size);
      }
    } writer;
    writer.text = &xml;
    built.save(writer, "\t", pugi::format_indent | pugi::format_no_declaration);
  }

  pugi::xml_document document;
  document.load_buffer(xml.data(), xml.size());
  long long check = 0;
  std::string value;
  for (pugi::xml_node element : document.document_element().children("METHODRECORD")) {
    for (pugi::xml_node parameter : element.children()) {
      int id = parameter.attribute("id").as_int();
      value = parameter.attribute("value").value();
      if (id == kvdao::MDF_IStd0) check += std::atoi(value.c_str());
      if (id == kvdao::MDF_Name) check += static_cast<long long>(value.size());
    }
  }
  double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return {seconds, std::move(xml), check};
}

}  // namespace

int main(int argc, char** argv) {
  int count = argc > 1 ? std::atoi(argv[1]) : 1000;
  if (count < 1) count = 1;
  std::vector<kvdao::CMethodRecord> records = MakeRecords(count);

  // The baseline's value texts, prepared outside its timing.
  std::vector<std::vector<std::string>> values;
  for (const auto& record : records) {
    std::vector<std::string> texts;
    for (int id = 0; id < kvdao::MDF_Count; ++id) {
      std::string text;
      double number;
      record.MethodGetFieldStr(id, true, text, 0, number);
      texts.push_back(std::move(text));
    }
    values.push_back(std::move(texts));
  }

  // Best of five runs each, alternating.
  Result library{1e9, {}, 0}, baseline{1e9, {}, 0};
  for (int round = 0; round < 5; ++round) {
    Result b = RunBaseline(values);
    if (b.seconds < baseline.seconds) baseline = std::move(b);
    Result l = RunLibrary(records);
    if (l.seconds < library.seconds) library = std::move(l);
  }
  if (library.xml != baseline.xml || library.check != baseline.check) {
    std::fprintf(stderr, "the two documents disagree\n");
    return 1;
  }
  std::printf("method records to XML and back, %d records (%d elements, %zu bytes)\n", count,
              count * kvdao::MDF_Count, library.xml.size());
  std::printf("  baseline (pugixml, texts prepared): %8.3f s\n", baseline.seconds);
  std::printf("  kvdao (WriteXML + ReadXML):         %8.3f s\n", library.seconds);
  std::printf("  time ratio kvdao/baseline: %.2f\n", library.seconds / baseline.seconds);
  return 0;
}
