#pragma once

// The one header an application or generated code includes.

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
#include <QxXmlLib16/NamespaceAliasMap.h>
#include <QxXmlLib16/SerializationContext.h>
#include <QxXmlLib16/Conversions.h>
#include <QxXmlLib16/DateTimeSpan.h>
#include <QxXmlLib16/DateTime.h>
#include <QxXmlLib16/BigInteger.h>
#include <QxXmlLib16/Decimal.h>
#include <QxXmlLib16/QxVariant.h>
#include <QxXmlLib16/XmlAttribute.h>
#include <QxXmlLib16/XmlElement.h>
#include <QxXmlLib16/XmlDocument.h>
#include <QxXmlLib16/ExpatReader.h>
#include <QxXmlLib16/XmlWriter.h>
#include <QxXmlLib16/XmlTextWriter.h>
