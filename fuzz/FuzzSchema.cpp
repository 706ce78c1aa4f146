// Holding any file against a schema: a small one with what makes a schema hard to follow, and that of the exchange
// standard where it lies beside the checkout.

#include "base/Exceptions.h"
#include "base/Files.h"
#include "inspect/SchemaValidation.h"
#include "support/TemporaryFolder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace
{

using namespace jlandxml;
using inspect::XmlSchema;

constexpr const char* SMALL_SCHEMA =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:l='http://www.landxml.org/schema/LandXML-1.2' "
    "targetNamespace='http://www.landxml.org/schema/LandXML-1.2' elementFormDefault='qualified'>"
    "<xs:simpleType name='numbers'><xs:list itemType='xs:double'/></xs:simpleType>"
    "<xs:simpleType name='turn'><xs:restriction base='xs:string'><xs:enumeration value='cw'/><xs:enumeration "
    "value='ccw'/>"
    "</xs:restriction></xs:simpleType>"
    "<xs:simpleType name='zone'><xs:restriction base='xs:string'><xs:pattern value='[1-9][0-9]?\\(X,Y\\)'/>"
    "</xs:restriction></xs:simpleType>"
    "<xs:complexType name='any'><xs:sequence><xs:any minOccurs='0' maxOccurs='unbounded' processContents='lax'/>"
    "</xs:sequence><xs:attribute name='name'/><xs:anyAttribute processContents='skip'/></xs:complexType>"
    "<xs:element name='LandXML'><xs:complexType><xs:choice maxOccurs='unbounded'>"
    "<xs:element name='Project' type='l:any'/><xs:element name='Units' type='l:any'/>"
    "<xs:element name='CoordinateSystem'><xs:complexType><xs:attribute name='horizontalCoordinateSystemName' "
    "type='l:zone'/></xs:complexType></xs:element>"
    "<xs:element name='Alignments'><xs:complexType><xs:sequence><xs:element name='Alignment' maxOccurs='unbounded'>"
    "<xs:complexType><xs:sequence><xs:element name='CoordGeom'><xs:complexType><xs:choice maxOccurs='unbounded'>"
    "<xs:element name='Line' type='l:any'/><xs:element name='Curve'><xs:complexType><xs:all>"
    "<xs:element name='Start' type='l:numbers'/><xs:element name='Center' type='l:numbers'/>"
    "<xs:element name='End' type='l:numbers'/></xs:all><xs:attribute name='rot' type='l:turn' use='required'/>"
    "<xs:attribute name='length' type='xs:double'/></xs:complexType></xs:element></xs:choice></xs:complexType>"
    "</xs:element><xs:any minOccurs='0' maxOccurs='9' processContents='skip'/></xs:sequence>"
    "<xs:attribute name='name' use='required'/></xs:complexType></xs:element></xs:sequence><xs:attribute name='name'/>"
    "</xs:complexType></xs:element></xs:choice><xs:attribute name='version'/></xs:complexType>"
    "<xs:unique name='names'><xs:selector xpath='.//l:Alignment'/><xs:field xpath='@name'/></xs:unique>"
    "<xs:keyref name='refs' refer='l:names'><xs:selector xpath='.//l:Roadway'/><xs:field xpath='@alignmentRefs'/>"
    "</xs:keyref></xs:element></xs:schema>";

using Schemas = std::vector<std::unique_ptr<const XmlSchema>>;

Schemas ReadSchemas()
{
    Schemas schemas;
    const TestFolder folder;
    schemas.push_back(std::make_unique<const XmlSchema>(folder.Write(L"small.xsd", SMALL_SCHEMA)));
    const std::wstring standard = JLANDXML_SOURCE_DIR L"/../shared/schema/J-LandXML-1.7.xsd";
    if (PathExists(standard))
    {
        schemas.push_back(std::make_unique<const XmlSchema>(standard));
    }
    return schemas;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Schemas& schemas = *new Schemas(ReadSchemas());
    for (const auto& schema : schemas)
    {
        schema->Validate({reinterpret_cast<const char*>(data), size});
    }
    return 0;
}
