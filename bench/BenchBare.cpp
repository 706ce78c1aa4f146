// What pugixml alone needs to load a file and save it again, with wide characters or, as bench_bare_narrow, without.
//
//   bench_bare IN OUT

#include <pugixml.hpp>

int main(int count, char** values)
{
    pugi::xml_document document;
    const bool done = count == 3 && document.load_file(values[1], pugi::parse_default | pugi::parse_declaration) &&
                      document.save_file(values[2], PUGIXML_TEXT("\t"),
                                         pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
    return done ? 0 : 1;
}
