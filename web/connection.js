// The one WebSocket to the host and the state map it keeps (docs/studio.md, "The protocol").
//
// The state is replaced by each snapshot and patched by each change set; modules subscribe to the
// keys they show and are called once per message with the keys that changed, so a dialog whose
// controls changed in one step is redrawn once. Binary messages (pictures) and the other JSON
// replies go to the handlers registered by type.

const RECONNECT_FIRST_MS = 250;
const RECONNECT_MAX_MS = 5000;

export class Connection {
    constructor(studio) {
        this.studio = studio;
        this.socket = null;
        this.delay = RECONNECT_FIRST_MS;
        this.stateListeners = [];
        this.typeHandlers = new Map();
        this.pictureHandler = null;
        this.openListeners = [];
        this.statusListeners = [];
    }

    // handler(changedKeys: Set<string>, isSnapshot: boolean), called after the state is updated.
    onState(handler) { this.stateListeners.push(handler); }
    // Replies other than state and pictures: "error", "listing", "help", ...
    onMessage(type, handler) {
        if (!this.typeHandlers.has(type)) this.typeHandlers.set(type, []);
        this.typeHandlers.get(type).push(handler);
    }
    onPicture(handler) { this.pictureHandler = handler; }
    // Called on every (re)connection, before the snapshot arrives.
    onOpen(handler) { this.openListeners.push(handler); }
    // handler(connected: boolean)
    onStatus(handler) { this.statusListeners.push(handler); }

    connect() {
        const scheme = location.protocol === 'https:' ? 'wss:' : 'ws:';
        const socket = new WebSocket(`${scheme}//${location.host}/ws`);
        socket.binaryType = 'arraybuffer';
        this.socket = socket;
        socket.addEventListener('open', () => {
            this.delay = RECONNECT_FIRST_MS;
            this.setConnected(true);
            for (const listener of this.openListeners) listener();
        });
        socket.addEventListener('message', (event) => this.receive(event.data));
        socket.addEventListener('close', () => {
            if (this.socket !== socket) return;
            this.socket = null;
            this.setConnected(false);
            // Backoff doubles so a host that is gone for good is not hammered.
            setTimeout(() => this.connect(), this.delay);
            this.delay = Math.min(this.delay * 2, RECONNECT_MAX_MS);
        });
    }

    setConnected(connected) {
        this.studio.connected = connected;
        for (const listener of this.statusListeners) listener(connected);
    }

    send(message) {
        if (!this.socket || this.socket.readyState !== WebSocket.OPEN) return false;
        this.socket.send(JSON.stringify(message));
        return true;
    }

    // A gui action on a control or dialog: {"type":"gui","action","id",...}.
    gui(action, id, fields = {}) { return this.send({ type: 'gui', action, id, ...fields }); }

    receive(data) {
        if (data instanceof ArrayBuffer) {
            if (this.pictureHandler) this.pictureHandler(data);
            return;
        }
        let message;
        try {
            message = JSON.parse(data);
        } catch {
            return;
        }
        if (message.type === 'snapshot' || message.type === 'changes') {
            this.applyState(message.state || {}, message.type === 'snapshot');
        }
        for (const handler of this.typeHandlers.get(message.type) || []) handler(message);
    }

    applyState(values, isSnapshot) {
        const state = this.studio.state;
        const changed = new Set(Object.keys(values));
        if (isSnapshot) {
            for (const key of Object.keys(state)) {
                changed.add(key);
                delete state[key];
            }
        }
        for (const [key, value] of Object.entries(values)) {
            if (value === null) delete state[key];
            else state[key] = value;
        }
        for (const listener of this.stateListeners) listener(changed, isSnapshot);
    }
}
