#pragma once

// The one header an application or generated code includes.

// Foundation: errors, text utilities, streams, compression
#include <QxXmlLib16/Types.h>
#include <QxXmlLib16/Exceptions.h>
#include <QxXmlLib16/InstanceMonitor.h>
#include <QxXmlLib16/QXCriticalSection.h>
#include <QxXmlLib16/Functions.h>
#include <QxXmlLib16/WhitespaceUtils.h>
#include <QxXmlLib16/ConvertUTF.h>
#include <QxXmlLib16/StringBuffer.h>
#include <QxXmlLib16/BinaryData.h>
#include <QxXmlLib16/Encoder.h>
#include <QxXmlLib16/Base64.h>
#include <QxXmlLib16/QxZip.h>
#include <QxXmlLib16/TextStream.h>
#include <QxXmlLib16/BinaryStream.h>

// XML tree, reader and writers
#include <QxXmlLib16/XmlAttribute.h>
#include <QxXmlLib16/XmlElement.h>
#include <QxXmlLib16/XmlDocument.h>
#include <QxXmlLib16/ExpatReader.h>
#include <QxXmlLib16/XmlWriter.h>
#include <QxXmlLib16/XmlTextWriter.h>

// Value types and conversions
#include <QxXmlLib16/BigInteger.h>
#include <QxXmlLib16/Decimal.h>
#include <QxXmlLib16/DateTimeSpan.h>
#include <QxXmlLib16/DateTime.h>
#include <QxXmlLib16/Conversions.h>
#include <QxXmlLib16/QxVariant.h>

// Binding runtime
#include <QxXmlLib16/NamespaceAliasMap.h>
#include <QxXmlLib16/SerializationContext.h>
#include <QxXmlLib16/SmartPtr.h>
#include <QxXmlLib16/Optional.h>
#include <QxXmlLib16/SharedText.h>
#include <QxXmlLib16/XmlObjectBase.h>
#include <QxXmlLib16/XmlObjectHelper.h>
#include <QxXmlLib16/PrimitiveRestrictions.h>
#include <QxXmlLib16/XmlGeneratedClass.h>
#include <QxXmlLib16/ClassMetaData.h>
#include <QxXmlLib16/ClassfactoryBase.h>

// Collections and wildcard content
#include <QxXmlLib16/XmlCollectionBase.h>
#include <QxXmlLib16/XmlCollection.h>
#include <QxXmlLib16/XmlClassCollection.h>
#include <QxXmlLib16/TypedItemIterator.h>
#include <QxXmlLib16/XmlTypeCollection.h>
#include <QxXmlLib16/TypedCollection.h>
#include <QxXmlLib16/PrimitiveCol.h>
#include <QxXmlLib16/datetimeBaseCol.h>
#include <QxXmlLib16/AttributeCol.h>
#include <QxXmlLib16/ElementCol.h>
#include <QxXmlLib16/base64BinaryCol.h>
#include <QxXmlLib16/booleanCol.h>
#include <QxXmlLib16/dateCol.h>
#include <QxXmlLib16/datetimeCol.h>
#include <QxXmlLib16/dayCol.h>
#include <QxXmlLib16/decimalCol.h>
#include <QxXmlLib16/durationCol.h>
#include <QxXmlLib16/hexBinaryCol.h>
#include <QxXmlLib16/i1Col.h>
#include <QxXmlLib16/i2Col.h>
#include <QxXmlLib16/i4Col.h>
#include <QxXmlLib16/i8Col.h>
#include <QxXmlLib16/integerCol.h>
#include <QxXmlLib16/monthCol.h>
#include <QxXmlLib16/monthDayCol.h>
#include <QxXmlLib16/r4Col.h>
#include <QxXmlLib16/r8Col.h>
#include <QxXmlLib16/stringCol.h>
#include <QxXmlLib16/timeCol.h>
#include <QxXmlLib16/ui1Col.h>
#include <QxXmlLib16/ui2Col.h>
#include <QxXmlLib16/ui4Col.h>
#include <QxXmlLib16/ui8Col.h>
#include <QxXmlLib16/yearCol.h>
#include <QxXmlLib16/yearMonthCol.h>
#include <QxXmlLib16/Attribute.h>
#include <QxXmlLib16/AttributeCol.h>
#include <QxXmlLib16/Element.h>
#include <QxXmlLib16/ElementCol.h>

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
