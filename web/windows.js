// Window chrome shared by the add-on's dialogs and the host's prompts: a title bar that moves the
// window, the stacking order, and modality. While a modal window is up, only the one in front
// takes input: a backdrop covers everything under it, the rest of the page is inert, focus goes
// into it and Tab cycles inside it.

const FOCUSABLE = 'button, input, select, textarea, [tabindex]:not([tabindex="-1"]), a[href], video[controls]';
let nextTitleId = 1;

export class WindowManager {
    constructor(layer, page) {
        this.layer = layer;      // the element windows are put in
        this.page = page;        // the rest of the page, made inert under a modal window
        this.backdrop = document.createElement('div');
        this.backdrop.className = 'backdrop';
        this.backdrop.hidden = true;
        layer.append(this.backdrop);
        this.raised = [];        // modeless windows, back to front
        this.modalOrder = [];    // modal windows, back to front (the last one has the input)
        this.owner = null;
        document.addEventListener('keydown', (event) => this.trapTab(event), true);
    }

    // {element, titleBar, title, body}; the caller fills body and calls show(). A prompt is modal
    // and in front of every dialog.
    create({ title, modal, prompt = false, className = 'dialog', role = 'dialog' }) {
        const element = document.createElement('div');
        element.className = className;
        element.setAttribute('role', role);
        element.tabIndex = -1;
        if (modal || prompt) element.setAttribute('aria-modal', 'true');
        const titleBar = document.createElement('div');
        titleBar.className = 'dialog-titlebar';
        const titleText = document.createElement('span');
        titleText.className = 'dialog-title';
        titleText.id = `window-title-${nextTitleId++}`;
        titleText.textContent = title;
        titleBar.append(titleText);
        element.setAttribute('aria-labelledby', titleText.id);
        const body = document.createElement('div');
        body.className = 'dialog-body';
        element.append(titleBar, body);
        const win = { element, titleBar, title: titleText, body, modal: !!modal || prompt, prompt };
        this.makeMovable(win);
        element.addEventListener('pointerdown', () => {
            if (!win.modal) this.raise(win);
        });
        return win;
    }

    // Puts the window on the page where place(win) says ({left, top} in the layer's pixels, asked
    // once the window has its size), or centred.
    show(win, placeOf) {
        if (!win.element.isConnected) this.layer.append(win.element);
        const place = placeOf?.(win);
        if (place) {
            const maxLeft = this.layer.clientWidth - win.element.offsetWidth;
            win.element.style.left = `${Math.max(0, Math.min(maxLeft, place.left))}px`;
            win.element.style.top = `${Math.max(0, place.top)}px`;
        } else {
            const left = (this.layer.clientWidth - win.element.offsetWidth) / 2;
            const top = (this.layer.clientHeight - win.element.offsetHeight) / 3;
            win.element.style.left = `${Math.max(0, left)}px`;
            win.element.style.top = `${Math.max(0, top)}px`;
        }
        if (win.modal) {
            if (!this.modalOrder.includes(win)) this.modalOrder.push(win);
            this.orderModals(this.modalOrder.filter((w) => !w.prompt));
        } else {
            this.raise(win);
        }
        this.arrange();
    }

    hide(win) {
        win.element.remove();
        this.raised = this.raised.filter((w) => w !== win);
        this.modalOrder = this.modalOrder.filter((w) => w !== win);
        this.arrange();
    }

    // The host's modal dialogs in this order, back to front; prompts stay in front of them all.
    orderModals(windows) {
        const prompts = this.modalOrder.filter((w) => w.prompt);
        const dialogs = windows.filter((w) => this.modalOrder.includes(w));
        const others = this.modalOrder.filter((w) => !w.prompt && !windows.includes(w));
        this.modalOrder = [...others, ...dialogs, ...prompts];
        this.arrange();
    }

    raise(win) {
        this.raised = this.raised.filter((w) => w !== win);
        this.raised.push(win);
        this.arrange();
    }

    arrange() {
        let z = 10;
        for (const win of this.raised) win.element.style.zIndex = String(z++);
        z = 1000;
        const owner = this.modalOrder[this.modalOrder.length - 1] || null;
        for (const win of this.modalOrder) {
            if (win === owner) this.backdrop.style.zIndex = String(z++);
            win.element.style.zIndex = String(z++);
        }
        this.backdrop.hidden = !owner;
        // Under a modal window everything else is inert: no clicks, no focus, no Tab stops.
        const others = [...this.raised, ...this.modalOrder.filter((w) => w !== owner)].map((w) => w.element);
        for (const element of [this.page, ...others]) element.inert = !!owner;
        if (owner) owner.element.inert = false;
        if (owner && owner !== this.owner) {
            // Focus goes into the window that has the input: its first field or button.
            const first = this.focusables(owner.element)[0];
            (first || owner.element).focus();
        }
        this.owner = owner;
    }

    // The window that has the input: the front modal one, else the one the focus is in.
    inputWindow() {
        if (this.owner) return this.owner;
        return this.raised.find((w) => w.element.contains(document.activeElement)) || null;
    }

    focusables(element) {
        return [...element.querySelectorAll(FOCUSABLE)].filter((e) => !e.disabled && e.offsetParent !== null && e.tabIndex >= 0);
    }

    trapTab(event) {
        if (event.key !== 'Tab' || !this.owner) return;
        const items = this.focusables(this.owner.element);
        if (items.length === 0) {
            event.preventDefault();
            return;
        }
        const at = items.indexOf(document.activeElement);
        const next = event.shiftKey ? (at <= 0 ? items.length - 1 : at - 1) : (at < 0 || at === items.length - 1 ? 0 : at + 1);
        event.preventDefault();
        items[next].focus();
    }

    makeMovable(win) {
        win.titleBar.addEventListener('pointerdown', (event) => {
            if (event.button !== 0) return;
            const element = win.element;
            const startX = event.clientX - element.offsetLeft;
            const startY = event.clientY - element.offsetTop;
            win.titleBar.setPointerCapture(event.pointerId);
            const move = (e) => {
                const maxLeft = this.layer.clientWidth - 40;
                const maxTop = this.layer.clientHeight - 20;
                element.style.left = `${Math.min(maxLeft, Math.max(0, e.clientX - startX))}px`;
                element.style.top = `${Math.min(maxTop, Math.max(0, e.clientY - startY))}px`;
            };
            const up = () => {
                win.titleBar.removeEventListener('pointermove', move);
                win.titleBar.removeEventListener('pointerup', up);
                win.moved = true;
            };
            win.titleBar.addEventListener('pointermove', move);
            win.titleBar.addEventListener('pointerup', up);
            event.preventDefault();
        });
    }
}
