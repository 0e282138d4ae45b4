// A SimConnect.dll for the test of the run-time binding: each call of the subset answers with
// its own number, so that a call handed to the wrong function shows. Built twice: whole, and
// lacking SimConnect_RequestFacilityData. The arguments are not read, so no signature is needed.
#define ORV_FAKE_CALL(call, number) \
  extern "C" long call() { return number; }

ORV_FAKE_CALL(SimConnect_Open, 1)
ORV_FAKE_CALL(SimConnect_Close, 2)
ORV_FAKE_CALL(SimConnect_CallDispatch, 3)
ORV_FAKE_CALL(SimConnect_GetLastSentPacketID, 4)
ORV_FAKE_CALL(SimConnect_SubscribeToSystemEvent, 5)
ORV_FAKE_CALL(SimConnect_AddToDataDefinition, 6)
ORV_FAKE_CALL(SimConnect_MapClientEventToSimEvent, 7)
ORV_FAKE_CALL(SimConnect_AddClientEventToNotificationGroup, 8)
ORV_FAKE_CALL(SimConnect_SetNotificationGroupPriority, 9)
ORV_FAKE_CALL(SimConnect_RequestDataOnSimObject, 10)
ORV_FAKE_CALL(SimConnect_RequestDataOnSimObjectType, 11)
ORV_FAKE_CALL(SimConnect_SetDataOnSimObject, 12)
ORV_FAKE_CALL(SimConnect_TransmitClientEvent, 13)
ORV_FAKE_CALL(SimConnect_AICreateNonATCAircraft, 14)
ORV_FAKE_CALL(SimConnect_AIRemoveObject, 15)
ORV_FAKE_CALL(SimConnect_AIReleaseControl, 16)
ORV_FAKE_CALL(SimConnect_AISetAircraftFlightPlan, 17)
ORV_FAKE_CALL(SimConnect_AddToFacilityDefinition, 18)
#if !defined(ORV_FAKE_LACKS_A_CALL)
ORV_FAKE_CALL(SimConnect_RequestFacilityData, 19)
#endif
