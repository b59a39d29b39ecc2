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

// Collections and wildcard content
#include <QxXmlLib16/collections/XmlCollectionBase.h>
#include <QxXmlLib16/collections/XmlCollection.h>
#include <QxXmlLib16/collections/XmlClassCollection.h>
#include <QxXmlLib16/collections/TypedItemIterator.h>
#include <QxXmlLib16/collections/XmlTypeCollection.h>
#include <QxXmlLib16/collections/TypedCollection.h>
#include <QxXmlLib16/collections/PrimitiveCol.h>
#include <QxXmlLib16/collections/datetimeBaseCol.h>
#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/collections/ElementCol.h>
#include <QxXmlLib16/collections/base64BinaryCol.h>
#include <QxXmlLib16/collections/booleanCol.h>
#include <QxXmlLib16/collections/dateCol.h>
#include <QxXmlLib16/collections/datetimeCol.h>
#include <QxXmlLib16/collections/dayCol.h>
#include <QxXmlLib16/collections/decimalCol.h>
#include <QxXmlLib16/collections/durationCol.h>
#include <QxXmlLib16/collections/hexBinaryCol.h>
#include <QxXmlLib16/collections/i1Col.h>
#include <QxXmlLib16/collections/i2Col.h>
#include <QxXmlLib16/collections/i4Col.h>
#include <QxXmlLib16/collections/i8Col.h>
#include <QxXmlLib16/collections/integerCol.h>
#include <QxXmlLib16/collections/monthCol.h>
#include <QxXmlLib16/collections/monthDayCol.h>
#include <QxXmlLib16/collections/r4Col.h>
#include <QxXmlLib16/collections/r8Col.h>
#include <QxXmlLib16/collections/stringCol.h>
#include <QxXmlLib16/collections/timeCol.h>
#include <QxXmlLib16/collections/ui1Col.h>
#include <QxXmlLib16/collections/ui2Col.h>
#include <QxXmlLib16/collections/ui4Col.h>
#include <QxXmlLib16/collections/ui8Col.h>
#include <QxXmlLib16/collections/yearCol.h>
#include <QxXmlLib16/collections/yearMonthCol.h>
#include <QxXmlLib16/collections/Attribute.h>
#include <QxXmlLib16/collections/AttributeCol.h>
#include <QxXmlLib16/collections/Element.h>
#include <QxXmlLib16/collections/ElementCol.h>

// Descriptors of generated classes
#include <QxXmlLib16/data/ElementInfo.h>
#include <QxXmlLib16/data/ParentElementInfo.h>
#include <QxXmlLib16/data/AttributeInfo.h>
#include <QxXmlLib16/data/AttributeInfoAny.h>
#include <QxXmlLib16/data/AttributeInfoEnum.h>
#include <QxXmlLib16/data/AttributeInfoPrimitive.h>
#include <QxXmlLib16/data/ElementInfoAllAbsClsCol.h>
#include <QxXmlLib16/data/ElementInfoAllAbsClsMnd.h>
#include <QxXmlLib16/data/ElementInfoAllAbsClsOpt.h>
#include <QxXmlLib16/data/ElementInfoAllClsCol.h>
#include <QxXmlLib16/data/ElementInfoAllClsMnd.h>
#include <QxXmlLib16/data/ElementInfoAllClsOpt.h>
#include <QxXmlLib16/data/ElementInfoAllCol.h>
#include <QxXmlLib16/data/ElementInfoAllEnumCol.h>
#include <QxXmlLib16/data/ElementInfoAllEnumMnd.h>
#include <QxXmlLib16/data/ElementInfoAllEnumOpt.h>
#include <QxXmlLib16/data/ElementInfoAllPrimCol.h>
#include <QxXmlLib16/data/ElementInfoAllPrimMnd.h>
#include <QxXmlLib16/data/ElementInfoAllPrimOpt.h>
#include <QxXmlLib16/data/ElementInfoAllUntpdCol.h>
#include <QxXmlLib16/data/ElementInfoAllUntpdMnd.h>
#include <QxXmlLib16/data/ElementInfoAllUntpdOpt.h>
#include <QxXmlLib16/data/ElementInfoChoiceAbsClsCol.h>
#include <QxXmlLib16/data/ElementInfoChoiceAbsClsOpt.h>
#include <QxXmlLib16/data/ElementInfoChoiceClsCol.h>
#include <QxXmlLib16/data/ElementInfoChoiceClsOpt.h>
#include <QxXmlLib16/data/ElementInfoChoiceCol.h>
#include <QxXmlLib16/data/ElementInfoChoiceEnumCol.h>
#include <QxXmlLib16/data/ElementInfoChoiceEnumOpt.h>
#include <QxXmlLib16/data/ElementInfoChoicePrimCol.h>
#include <QxXmlLib16/data/ElementInfoChoicePrimOpt.h>
#include <QxXmlLib16/data/ElementInfoChoiceUntpdCol.h>
#include <QxXmlLib16/data/ElementInfoChoiceUntpdOpt.h>
#include <QxXmlLib16/data/ElementInfoSeqAbsClsCol.h>
#include <QxXmlLib16/data/ElementInfoSeqAbsClsMnd.h>
#include <QxXmlLib16/data/ElementInfoSeqAbsClsOpt.h>
#include <QxXmlLib16/data/ElementInfoSeqClsCol.h>
#include <QxXmlLib16/data/ElementInfoSeqClsMnd.h>
#include <QxXmlLib16/data/ElementInfoSeqClsOpt.h>
#include <QxXmlLib16/data/ElementInfoSeqCol.h>
#include <QxXmlLib16/data/ElementInfoSeqEnumCol.h>
#include <QxXmlLib16/data/ElementInfoSeqEnumMnd.h>
#include <QxXmlLib16/data/ElementInfoSeqEnumOpt.h>
#include <QxXmlLib16/data/ElementInfoSeqPrimCol.h>
#include <QxXmlLib16/data/ElementInfoSeqPrimMnd.h>
#include <QxXmlLib16/data/ElementInfoSeqPrimOpt.h>
#include <QxXmlLib16/data/ElementInfoSeqUntpdCol.h>
#include <QxXmlLib16/data/ElementInfoSeqUntpdMnd.h>
#include <QxXmlLib16/data/ElementInfoSeqUntpdOpt.h>
