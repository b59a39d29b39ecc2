#pragma once

// The one header an application or generated code includes.

// Foundation: errors, text utilities, streams, compression
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/QXCriticalSection.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/foundation/ConvertUTF.h>
#include <QxXmlLib16/foundation/StringBuffer.h>
#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/Base64.h>
#include <QxXmlLib16/foundation/QxZip.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/foundation/BinaryStream.h>

// XML tree, reader and writers
#include <QxXmlLib16/xml/XmlAttribute.h>
#include <QxXmlLib16/xml/XmlElement.h>
#include <QxXmlLib16/xml/XmlDocument.h>
#include <QxXmlLib16/xml/ExpatReader.h>
#include <QxXmlLib16/xml/XmlWriter.h>
#include <QxXmlLib16/xml/TextWriterBase.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

// Fast Infoset
#include <QxXmlLib16/fastinfoset/FIVocabulary.h>
#include <QxXmlLib16/fastinfoset/FastInfosetContext.h>
#include <QxXmlLib16/fastinfoset/FastInfosetBinaryData.h>
#include <QxXmlLib16/fastinfoset/FastInfosetWriter.h>
#include <QxXmlLib16/fastinfoset/FastInfosetReader.h>

// Value types and conversions
#include <QxXmlLib16/values/BigInteger.h>
#include <QxXmlLib16/values/Decimal.h>
#include <QxXmlLib16/values/DateTimeSpan.h>
#include <QxXmlLib16/values/DateTime.h>
#include <QxXmlLib16/binding/Conversions.h>
#include <QxXmlLib16/values/QxVariant.h>

// Binding runtime
#include <QxXmlLib16/binding/NamespaceAliasMap.h>
#include <QxXmlLib16/binding/SerializationContext.h>
#include <QxXmlLib16/foundation/SmartPtr.h>
#include <QxXmlLib16/foundation/Optional.h>
#include <QxXmlLib16/foundation/SharedText.h>
#include <QxXmlLib16/binding/XmlObjectBase.h>
#include <QxXmlLib16/binding/XmlObjectHelper.h>
#include <QxXmlLib16/data/PrimitiveRestrictions.h>
#include <QxXmlLib16/binding/XmlGeneratedClass.h>
#include <QxXmlLib16/binding/ClassMetaData.h>
#include <QxXmlLib16/binding/ClassfactoryBase.h>
#include <QxXmlLib16/binding/ItemTraits.h>

// Collections and wildcard content
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/collections/XmlCollection.h>
#include <QxXmlLib16/collections/XmlClassCollection.h>
#include <QxXmlLib16/collections/TypedItemIterator.h>
#include <QxXmlLib16/collections/XmlTypeCollection.h>
#include <QxXmlLib16/collections/TypedCollection.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>
#include <QxXmlLib16/collections/datetimeBaseCol.h>
#include <QxXmlLib16/collections/Attribute.h>
#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/binding/SchemaSupport.h>

// Descriptors of generated classes
#include <QxXmlLib16/data/ElementInfo.h>
#include <QxXmlLib16/data/ParentElementInfo.h>
#include <QxXmlLib16/data/AttributeInfo.h>
#include <QxXmlLib16/data/AttributeInfoAny.h>
#include <QxXmlLib16/data/AttributeInfoEnum.h>
#include <QxXmlLib16/data/AttributeInfoPrimitive.h>
#include <QxXmlLib16/data/ElementInfoFamily.h>

// What generated classes share
#include <QxXmlLib16/binding/GeneratedCode.h>

// JSON writer, reader and handlers
#include <QxXmlLib16/json/JsonContext.h>
#include <QxXmlLib16/json/JsonTextWriter.h>
#include <QxXmlLib16/json/JsonReaderHandler.h>
#include <QxXmlLib16/json/JsonReaderToXmlHandler.h>
#include <QxXmlLib16/json/JsonTextReader.h>
